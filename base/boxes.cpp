#include "base/boxes.h"

#include "base/errors.h"
#include "base/messages.h"
#include "base/text.h"

#include <cstdarg>
#include <cstdlib>

namespace
{

struct {
    int depth;
    void (*leavehook)(int status);
    const char *name = "Quillmere", *title;
} boxes;

constexpr int32_t TEXTSIZE = sizeof errorblock::text;

int boxnested(intptr_t parent, const char *text, uint32_t flags)
{
    boxes.depth++;
    int answer = boxshow(parent, text, tasktitle(), flags);
    boxes.depth--;
    return answer;
}

uint32_t askicon(uint32_t number)
{
    switch (number) {
    case 1:
        return BOXWARNING;
    case 2:
        return BOXINFORMATION;
    case 3:
        return BOXQUESTION;
    case 4:
        return BOXSTOP;
    default:
        return 0;
    }
}

uint32_t askbuttons(uint32_t number)
{
    switch (number) {
    case 1:
        return BOXOKCANCEL;
    case 2:
        return BOXYESNO;
    case 3:
        return BOXYESNOCANCEL;
    default:
        return 0;
    }
}

int askanswer(int pressed)
{
    switch (pressed) {
    case 1:
        return ASKOK;
    case 2:
        return ASKCANCEL;
    case 6:
        return ASKYES;
    case 7:
        return ASKNO;
    default:
        return ASKOTHER;
    }
}

} // namespace

errorblock *errorbox(const errorblock *error, bool warn)
{
    if (error && error->code != ERRORQUIET)
        boxnested(0, error->text, BOXTASKMODAL | (warn ? BOXWARNING : BOXSTOP));
    return nullptr;
}

void reporterror(const errorblock *error)
{
    errorbox(error, false);
}

void reportfatal(const errorblock *error)
{
    if (!error) return;
    errorbox(error, false);
    leave(1);
}

void reporttext(const char *text, uint32_t flags)
{
    errorblock block = {};
    strcopyn(block.text, text, TEXTSIZE);
    expandtokens(block.text, TEXTSIZE);
    errorbox(&block, flags == REPORTWARNING);
}

void reporttextfatal(const char *text)
{
    reporttext(text, 0);
    leave(1);
}

void reportf(int level, const char *format, ...)
{
    errorblock block = {};
    va_list arguments;
    va_start(arguments, format);
    messageformat(TEXTSIZE, block.text, format, arguments);
    va_end(arguments);
    expandtokens(block.text, TEXTSIZE);
    if (level == 3)
        boxnested(0, block.text, BOXTASKMODAL | BOXINFORMATION);
    else
        errorbox(&block, level == 2);
    if (level == 1) leave(1);
}

errorblock *askbox(intptr_t parent, uint32_t flags, int *answer, const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    messageformat(sizeof text, text, format, arguments);
    va_end(arguments);
    uint32_t look = askicon(flags >> 16 & 0xFF) | askbuttons(flags & 0xFFFF);
    *answer = askanswer(boxnested(parent, text, look));
    return nullptr;
}

int boxdepth()
{
    return boxes.depth;
}

void leave(int status)
{
    if (boxes.leavehook) boxes.leavehook(status);
    std::exit(status);
}

void setleave(void (*hook)(int status))
{
    boxes.leavehook = hook;
}

void settaskname(const char *name, const char *title)
{
    boxes.name = name;
    boxes.title = title;
}

const char *taskname()
{
    return boxes.name;
}

const char *tasktitle()
{
    return boxes.title ? boxes.title : boxes.name;
}
