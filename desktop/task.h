// desktop/task.h - the life of the task: its start-up order and its main loop.
//
// Three stages. Before starttask returns nothing can be shown but a system
// message box; until runtask no event is delivered, though reporterror and
// askbox work; then there is only the poll, and the process ends from inside it.
//
// The name and title of the task are taskname and tasktitle of base/boxes.h.
#pragma once

#include <cstdint>

struct errorblock;

// Set by the process's entry before anything else runs.
extern intptr_t taskinstance; // the program's module, where its resources are
extern int taskshow;          // how the system wants the first window shown; not used
extern const char *taskleaf;  // of the program's path; 0 for an empty command line

// The messages (message.h) that mark the stages.
constexpr intptr_t TASKSPRITES = 0x10000;  // sprites are loaded, texts are not
constexpr intptr_t TASKSPRITES2 = 0x10006; // straight behind it
constexpr intptr_t TASKTEXTS = 0x10001;    // texts are loaded
constexpr intptr_t TASKREADY = 3;          // the main window is about to open
constexpr intptr_t TASKRUN = 0x10007;      // the poll is about to run
constexpr intptr_t TASKEND = 4;            // the process is ending

// Starts the foundation and the library. iconname is the icon of its windows;
// Sprites.spr and Messages.txt are read from directory, or with 0 from the
// program's resources. reserved is not used. inithook, if not 0, is called with
// 0 in the middle. The first error ends it; the trace goes on to the end.
errorblock *starttask(const char *name, const char *title, const char *iconname,
                      const char *directory, int reserved, errorblock *(*inithook)(int32_t));

// Polls for ever.
[[noreturn]] void runtask();

// Asked when the system's session is about to end: whether the user wants to stay,
// which keeps the session. 0, as at the start, lets it end.
void setendquery(bool (*stays)());
bool taskstays(); // the answer to that. MAY POLL: a question may run a loop of its own

const char *taskicon();
bool taskrunning();     // once the poll runs
uint32_t taskprocess(); // the system's number of this process

// As before starttask.
void taskreset();
