#include "tools/quill/console.h"

#include "base/encoding.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/flex.h"
#include "tools/quill/edge.h"

#include <cstdarg>
#include <cstdio>

namespace
{

bool counting;

// By what the bytes are, whatever the console's own encoding is.
errorblock *textdecode(const std::string &bytes, std::string *text)
{
    textkindfinder finder = {};
    for (char byte : bytes)
        textkindbyte(&finder, static_cast<uint8_t>(byte));
    if (!textkindutf8(finder)) {
        *text = bytes;
        return nullptr;
    }
    constexpr size_t MARKBYTES = 3;
    size_t start = finder.marked ? MARKBYTES : 0;
    int32_t length = 0;
    text->assign(bytes.size() + 1, 0); // never longer than its UTF-8
    errorblock *err = utf8to1252(bytes.data() + start, static_cast<int32_t>(bytes.size() - start),
                                 text->data(), static_cast<int32_t>(text->size()), &length);
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

errorblock *bytesload(const std::string &path, std::string *bytes)
{
    void *held = nullptr;
    int32_t size = 0;
    errorblock *err = fileloadnew(path.c_str(), &held, &size);
    if (!err && !held) err = makeerrorf(ERRORNOTFOUND, path.c_str());
    if (!err) bytes->assign(static_cast<char *>(held), static_cast<size_t>(size));
    heap_free(&held);
    return err;
}

errorblock *textload(const std::string &path, std::string *text)
{
    std::string bytes;
    errorblock *err = bytesload(path, &bytes);
    return err ? err : textdecode(bytes, text);
}

errorblock *inputload(std::string *text)
{
    std::string bytes;
    char buffer[4096];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, stdin)) > 0)
        bytes.append(buffer, got);
    if (std::ferror(stdin)) return makeerror(ERRORREAD);
    return textdecode(bytes, text);
}

errorblock *outclose()
{
    if (std::fflush(stdout) || std::ferror(stdout)) return makeerror(ERRORWRITE);
    return nullptr;
}
