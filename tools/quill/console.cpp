#include "tools/quill/console.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "tools/quill/edge.h"

#include <cstdarg>
#include <cstdio>

namespace
{

bool counting;

} // namespace

void outbytes(const std::string &bytes)
{
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void outtext(const std::string &text)
{
    outbytes(edgeout(text));
}

void outline(const std::string &text)
{
    outtext(text);
    std::fputc('\n', stdout);
}

void remark(const char *format, ...)
{
    char text[1024];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    countend();
    std::fprintf(stderr, "%s\n", edgeout(text).c_str());
}

void countshow(const char *what, int32_t n)
{
    if (!edgeterminal()) return;
    std::fprintf(stderr, "\r%s %d", what, static_cast<int>(n));
    std::fflush(stderr);
    counting = true;
}

void countend()
{
    if (counting) std::fputs("\r\x1b[K", stderr);
    counting = false;
}

errorblock *textload(const std::string &path, std::string *text)
{
    void *bytes = nullptr;
    int32_t size = 0;
    errorblock *err = fileloadnew(path.c_str(), &bytes, &size);
    if (!err && !bytes) err = makeerrorf(ERRORNOTFOUND, path.c_str());
    if (!err)
        err = edgein(std::string(static_cast<char *>(bytes), static_cast<size_t>(size)), text);
    heap_free(&bytes);
    return err;
}

errorblock *inputload(std::string *text)
{
    std::string bytes;
    char buffer[4096];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, stdin)) > 0)
        bytes.append(buffer, got);
    if (std::ferror(stdin)) return makeerror(ERRORREAD);
    return edgein(bytes, text);
}

errorblock *outclose()
{
    if (std::fflush(stdout) || std::ferror(stdout)) return makeerror(ERRORWRITE);
    return nullptr;
}
