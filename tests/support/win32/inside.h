// tests/support/win32/inside.h - the whole program inside its tests: started on this
// thread, and put back to a first start. Lines of the trace go nowhere: this process's
// own console is where results are.
#pragma once

#include <functional>
#include <string>

struct errorblock;

errorblock *programbegin();

// The document, its list and all looks are those of the start.
void documentreset();

// None is known, and the folder of dictionaries is another. The menu is as it was.
void dictionariesdrop(const std::string &folder);

// The main window is in its first place, in front.
void mainwindowreset();

// A user on a thread of his own: whether his hands wait until the program has nothing
// left to do, which is said on its thread; and work for that thread, waited for or not.
void userhands(bool on);
void inprogram(const std::function<void()> &work);
void later(const std::function<void()> &work);
