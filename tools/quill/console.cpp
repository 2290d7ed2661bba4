#include "tools/quill/console.h"

#include "base/encoding.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "tools/quill/edge.h"

#include <cstdarg>
#include <cstdint>
#include <cstdio>

namespace
{

bool counting;

// By what the bytes are, whatever the console's own encoding is. In their own place,
// since a text may be large and is never longer than its UTF-8.
errorblock *textdecode(std::string *text)
{
    textkindfinder finder = {};
    for (char byte : *text)
        textkindbyte(&finder, static_cast<uint8_t>(byte));
    if (!textkindutf8(finder)) return nullptr;
    constexpr size_t MARKBYTES = 3;
    size_t start = finder.marked ? MARKBYTES : 0, size = text->size() - start;
    int32_t length = 0;
    errorblock *err = utf8to1252(text->data() + start, static_cast<int32_t>(size), text->data(),
                                 static_cast<int32_t>(text->size() + 1), &length);
    text->resize(static_cast<size_t>(length));
    return err;
}

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
    static const bool seen = edgeterminal(); // by asking the system
    if (!seen) return;
    std::fprintf(stderr, "\r%s %d", what, static_cast<int>(n));
    std::fflush(stderr);
    counting = true;
}

void countend()
{
    if (counting) std::fputs("\r\x1b[K", stderr);
    counting = false;
}

errorblock *bytesload(const std::string &path, std::string *bytes)
{
    filehandle handle = 0;
    fileinfo info;
    int32_t size = 0;
    errorblock *err = fileinfoget(path.c_str(), &info);
    if (!err && info.objecttype != OBJECTFILE) err = makeerrorf(ERRORNOTFOUND, path.c_str());
    if (!err) err = fileopen(path.c_str(), "r", &handle);
    if (!err) err = filesize(handle, &size);
    if (!err) bytes->resize(static_cast<size_t>(size));
    if (!err) err = filereadall(handle, bytes->data(), size);
    return fileclose(handle, err);
}

errorblock *textload(const std::string &path, std::string *text)
{
    errorblock *err = bytesload(path, text);
    return err ? err : textdecode(text);
}

errorblock *inputload(std::string *text)
{
    char buffer[4096];
    text->clear();
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, stdin)) > 0) {
        if (text->size() + got > INT32_MAX) return makeerror(ERRORMEMORY);
        text->append(buffer, got);
    }
    if (std::ferror(stdin)) return makeerror(ERRORREAD);
    return textdecode(text);
}

errorblock *outclose()
{
    if (std::fflush(stdout) || std::ferror(stdout)) return makeerror(ERRORWRITE);
    return nullptr;
}
