#include "tools/quill/edge.h"

#include "base/encoding.h"
#include "base/errors.h"

#include <windows.h>

#include <shellapi.h>

#include <atomic>
#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace
{

std::atomic<bool> stopped; // set on a thread of the system's

// The second Ctrl+C is the system's own: it ends the program.
BOOL WINAPI interrupted(DWORD event)
{
    if (event != CTRL_C_EVENT || stopped) return FALSE;
    stopped = true;
    return TRUE;
}

UINT inputpage()
{
    UINT page = GetConsoleCP();
    return page ? page : CP_ACP;
}

UINT outputpage()
{
    UINT page = GetConsoleOutputCP();
    return page ? page : CP_ACP;
}

// 16-bit text to code page 1252; error for a character that it lacks.
errorblock *widein(const wchar_t *wide, size_t length, std::string *text)
{
    text->clear();
    for (size_t i = 0; i < length; i++) {
        int32_t ch = unicodeto1252(static_cast<uint16_t>(wide[i]));
        if (ch < 0) return encodingerror(static_cast<uint16_t>(wide[i]));
        text->push_back(static_cast<char>(ch));
    }
    return nullptr;
}

} // namespace

void edgestart()
{
    SetConsoleCtrlHandler(interrupted, TRUE);
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
}

bool edgestopped()
{
    return stopped;
}

bool edgeterminal()
{
    return _isatty(_fileno(stderr)) != 0;
}

errorblock *edgein(const std::string &bytes, std::string *text)
{
    int size = static_cast<int>(bytes.size());
    int length = MultiByteToWideChar(inputpage(), 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<size_t>(length), 0);
    MultiByteToWideChar(inputpage(), 0, bytes.data(), size, wide.data(), length);
    return widein(wide.data(), wide.size(), text);
}

std::string edgeout(const std::string &text)
{
    std::wstring wide;
    for (char ch : text)
        wide.push_back(static_cast<wchar_t>(unicodefrom1252(static_cast<uint8_t>(ch))));
    int size = static_cast<int>(wide.size());
    int length =
        WideCharToMultiByte(outputpage(), 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<size_t>(length), 0);
    WideCharToMultiByte(outputpage(), 0, wide.data(), size, out.data(), length, nullptr, nullptr);
    return out;
}

// The command line is asked for in 16 bits, since the narrow one has already
// lost what the system's code page lacks.
errorblock *edgearguments(int, char **, std::vector<std::string> *out)
{
    int count = 0;
    wchar_t **words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!words) return makeerror(ERRORMEMORY);
    errorblock *err = nullptr;
    for (int i = 1; i < count && !err; i++) {
        out->emplace_back();
        err = widein(words[i], wcslen(words[i]), &out->back());
    }
    LocalFree(words);
    return err;
}
