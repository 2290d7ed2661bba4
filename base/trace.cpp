#include "base/trace.h"

#include "base/bfile.h"
#include "base/boxes.h"
#include "base/dates.h"
#include "base/errors.h"
#include "base/platform.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <cwchar>

// Nothing here allocates, and nothing but the file header makes an error: the
// allocator traces too, and an error under way must live through a trace.

namespace
{

constexpr int LINESIZE = 510;
constexpr int FILELINESIZE = 512; // of the log file and the screen
constexpr char LOGNAME[] = "Quillmere.log";

// The length of what a formatter left in a buffer of size.
int cutlength(int told, int size)
{
    return told < 0 || told >= size ? size - 1 : told;
}

void logwrite(const char *line)
{
    char path[PATHSIZE + sizeof LOGNAME];
    platformtempfolder(path, PATHSIZE);
    if (!path[0]) return;
    strcat(path, LOGNAME);
    FILE *log = platformstream(path, "ab+");
    if (!log) return;
    std::fputs(line, log);
    std::fclose(log);
}

} // namespace

void trace(const char *format, ...)
{
    char line[LINESIZE + 2];
    va_list arguments;
    va_start(arguments, format);
    int length = cutlength(std::vsnprintf(line, LINESIZE, format, arguments), LINESIZE);
    va_end(arguments);
    strcpy(line + length, "\r\n");
    tracewrite(line, length + 2);
}

// The wide formatter doesn't say how much it left when the text is too long.
void tracew(const wchar_t *format, ...)
{
    wchar_t line[LINESIZE + 2] = {};
    va_list arguments;
    va_start(arguments, format);
    std::vswprintf(line, LINESIZE, format, arguments);
    va_end(arguments);
    line[LINESIZE - 1] = 0;
    size_t length = std::wcslen(line);
    std::wcscpy(line + length, L"\r\n");
    tracewritew(line, static_cast<int>(length) + 2);
}

void tracescreen(int row, const char *format, ...)
{
    char text[FILELINESIZE];
    va_list arguments;
    va_start(arguments, format);
    int length = cutlength(std::vsnprintf(text, FILELINESIZE, format, arguments), FILELINESIZE);
    va_end(arguments);
    tracepaint(row * 10, text, length);
}

void tracefile(const char *format, ...)
{
    char line[FILELINESIZE + 1];
    va_list arguments;
    va_start(arguments, format);
    int length = cutlength(std::vsnprintf(line, FILELINESIZE, format, arguments), FILELINESIZE);
    va_end(arguments);
    strcpy(line + length, "\n");
    logwrite(line);
}

void traceerror(const char *label, const errorblock *error)
{
    if (error) tracefile("%s (%s)", label, error->text);
}

errorblock *textfileheader(bfile *file, const char *title)
{
    char now[DATESIZE];
    nowtextboth(now);
    errorblock *err = bprintline(file, "//->%s", title);
    if (!err)
        err = bprintf(file, "// Produced by %s at %s\r\n//\r\n//\r\n\r\n\r\n", taskname(), now);
    return err;
}
