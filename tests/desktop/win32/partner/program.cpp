// The other program of the tests of the clipboard and of conversations: plain
// calls of the system, and nothing of the library. It does what it reads from its
// standard input, line by line, and answers each with a line. Started without an
// argument, as a shell would, it answers to "Words" for the topic "Lists" until it
// is let go.
#include <windows.h>

#include <dde.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

namespace
{

constexpr UINT COMMANDLINE = WM_APP; // lparam is a std::string
constexpr DWORD PATIENCE = 3000, SOON = 300;

struct state {
    HWND self, server; // server: who answered our question first
    std::string app, topic;
    bool serving, alone;
    int answers; // to the question that goes round
    bool asking;
    bool acknowledged, terminated, twice;
    bool ending; // by us
    UINT_PTR status;
    std::string received; // data and pokes, in words
};
state partner;

std::string atomname(ATOM atom)
{
    char name[256] = "";
    GlobalGetAtomNameA(atom, name, sizeof name);
    return name;
}

std::string hex(const void *data, size_t size)
{
    std::string text;
    for (size_t i = 0; i < size; i++) {
        char two[3];
        snprintf(two, sizeof two, "%02x", static_cast<const unsigned char *>(data)[i]);
        text += two;
    }
    return text;
}

// Pumps until the flag is up.
bool wait(const bool &flag, DWORD milliseconds)
{
    DWORD start = GetTickCount();
    while (!flag && GetTickCount() - start < milliseconds) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        for (MSG m; !flag && PeekMessageA(&m, partner.self, WM_DDE_FIRST, WM_DDE_LAST, PM_REMOVE);)
            DispatchMessageA(&m);
    }
    return flag;
}

std::string answer(DWORD milliseconds)
{
    if (!wait(partner.acknowledged, milliseconds)) return "none";
    char text[32];
    snprintf(text, sizeof text, "ack %x", static_cast<unsigned>(partner.status));
    return text;
}

void post(UINT message, UINT_PTR low, UINT_PTR high)
{
    partner.acknowledged = false;
    PostMessageA(partner.server, message, reinterpret_cast<WPARAM>(partner.self),
                 PackDDElParam(message, low, high));
}

void initiated(HWND client, ATOM app, ATOM topic)
{
    if (!partner.serving || client == partner.self) return;
    if (atomname(app) != partner.app || atomname(topic) != partner.topic) return;
    partner.server = client; // the partner of this side, whichever it is
    SendMessageA(
        client, WM_DDE_ACK, reinterpret_cast<WPARAM>(partner.self),
        MAKELPARAM(GlobalAddAtomA(partner.app.c_str()), GlobalAddAtomA(partner.topic.c_str())));
}

void acknowledged(HWND from, LPARAM packed)
{
    if (partner.asking) {
        if (partner.answers++ == 0) partner.server = from;
        return;
    }
    UINT_PTR item = 0;
    UnpackDDElParam(WM_DDE_ACK, packed, &partner.status, &item);
    FreeDDElParam(WM_DDE_ACK, packed);
    partner.acknowledged = true;
}

void arrived(UINT message, LPARAM packed)
{
    UINT_PTR block = 0, item = 0;
    UnpackDDElParam(message, packed, &block, &item);
    FreeDDElParam(message, packed);
    auto handle = reinterpret_cast<HGLOBAL>(block);
    auto *data = static_cast<const char *>(GlobalLock(handle));
    partner.received = message == WM_DDE_POKE ? "poke " : "data ";
    partner.received += atomname(static_cast<ATOM>(item)) + " " + hex(data, GlobalSize(handle));
    GlobalUnlock(handle);
    GlobalFree(handle);
    if (message == WM_DDE_POKE) post(WM_DDE_ACK, 0x8000, item);
}

LRESULT CALLBACK procedure(HWND self, UINT message, WPARAM wparam, LPARAM lparam)
{
    auto other = reinterpret_cast<HWND>(wparam);
    switch (message) {
    case WM_DDE_INITIATE:
        initiated(other, LOWORD(lparam), HIWORD(lparam));
        return 0;
    case WM_DDE_ACK:
        acknowledged(other, lparam);
        return 0;
    case WM_DDE_POKE:
    case WM_DDE_DATA:
        arrived(message, lparam);
        return 0;
    case WM_DDE_TERMINATE:
        // Who has been terminated says so too; who began it doesn't.
        if (!partner.terminated && !partner.ending)
            PostMessageA(other, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(self), 0);
        partner.twice = partner.terminated;
        partner.terminated = true;
        if (partner.alone) PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcA(self, message, wparam, lparam);
}

std::string paste(UINT format)
{
    OpenClipboard(nullptr);
    HANDLE data = GetClipboardData(format);
    std::string text = "none";
    if (data && format == CF_METAFILEPICT) {
        auto *picture = static_cast<METAFILEPICT *>(GlobalLock(data));
        text = "mode " + std::to_string(picture->mm) + " size " + std::to_string(picture->xExt) +
               "," + std::to_string(picture->yExt) + " bytes " +
               std::to_string(GetMetaFileBitsEx(picture->hMF, 0, nullptr));
        GlobalUnlock(data);
    } else if (data && format == CF_ENHMETAFILE) {
        auto picture = static_cast<HENHMETAFILE>(data);
        text = "bytes " + std::to_string(GetEnhMetaFileBits(picture, 0, nullptr));
    } else if (data) {
        text = hex(GlobalLock(data), GlobalSize(data));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

HGLOBAL blockof(const void *data, size_t size)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, size ? size : 1);
    memcpy(GlobalLock(block), data, size);
    GlobalUnlock(block);
    return block;
}

void copy(const std::string &text)
{
    OpenClipboard(partner.self);
    EmptyClipboard();
    SetClipboardData(CF_TEXT, blockof(text.c_str(), text.size() + 1));
    CloseClipboard();
}

std::string initiate(const std::string &app, const std::string &topic)
{
    ATOM appatom = app == "-" ? 0 : GlobalAddAtomA(app.c_str());
    ATOM topicatom = topic == "-" ? 0 : GlobalAddAtomA(topic.c_str());
    partner.answers = 0;
    partner.terminated = false;
    partner.asking = true;
    SendMessageTimeoutA(HWND_BROADCAST, WM_DDE_INITIATE, reinterpret_cast<WPARAM>(partner.self),
                        MAKELPARAM(appatom, topicatom), SMTO_NORMAL, PATIENCE, nullptr);
    partner.asking = false;
    return std::to_string(partner.answers);
}

// A poke or data: flags in hexadecimal, the item, and the text.
std::string put(UINT message, unsigned flags, const std::string &item, const std::string &text)
{
    unsigned short header[2] = {static_cast<unsigned short>(flags), CF_TEXT};
    std::string bytes = std::string(reinterpret_cast<const char *>(header), 4) + text;
    post(message, reinterpret_cast<UINT_PTR>(blockof(bytes.data(), bytes.size())),
         GlobalAddAtomA(item.c_str()));
    return answer(message == WM_DDE_POKE || flags & 0x8000 ? PATIENCE : SOON);
}

// Ends the conversation: what comes back isn't answered, and comes once.
std::string terminate()
{
    partner.terminated = partner.twice = false;
    partner.ending = true;
    PostMessageA(partner.server, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(partner.self), 0);
    wait(partner.terminated, PATIENCE);
    wait(partner.twice, SOON);
    partner.ending = false;
    return partner.twice ? "twice" : partner.terminated ? "terminated" : "none";
}

std::string word(std::string *line)
{
    size_t end = line->find(' ');
    std::string first = line->substr(0, end);
    *line = end == std::string::npos ? "" : line->substr(end + 1);
    return first;
}

unsigned number(const std::string &text)
{
    return static_cast<unsigned>(strtoul(text.c_str(), nullptr, 16));
}

std::string obey(std::string line)
{
    std::string verb = word(&line);
    if (verb == "paste") return paste(number(line));
    if (verb == "copy") return copy(line), "ok";
    if (verb == "serve") {
        partner.app = word(&line);
        partner.topic = line;
        partner.serving = true;
        partner.terminated = false;
        return "ok";
    }
    if (verb == "initiate") {
        std::string app = word(&line);
        return initiate(app, line);
    }
    if (verb == "execute" || verb == "unended") { // the block holds just the text
        size_t size = line.size() + (verb == "execute");
        post(WM_DDE_EXECUTE, 0, reinterpret_cast<UINT_PTR>(blockof(line.c_str(), size)));
        return answer(PATIENCE);
    }
    if (verb == "poke" || verb == "data") {
        unsigned flags = number(word(&line));
        std::string item = word(&line);
        return put(verb == "poke" ? WM_DDE_POKE : WM_DDE_DATA, flags, item, line);
    }
    if (verb == "terminate") return terminate();
    if (verb == "terminated") return wait(partner.terminated, SOON * 3) ? "yes" : "no";
    if (verb == "received") return partner.received.empty() ? "none" : partner.received;
    return "what?";
}

void readlines()
{
    char line[2048];
    while (fgets(line, sizeof line, stdin)) {
        line[strcspn(line, "\r\n")] = 0;
        PostMessageA(partner.self, COMMANDLINE, 0, reinterpret_cast<LPARAM>(new std::string(line)));
    }
    PostMessageA(partner.self, WM_QUIT, 0, 0);
}

void CALLBACK timeout(HWND, UINT, UINT_PTR, DWORD)
{
    ExitProcess(1);
}

} // namespace

int main(int count, char **)
{
    WNDCLASSA made = {};
    made.lpszClassName = "desktoppartner";
    made.lpfnWndProc = procedure;
    RegisterClassA(&made);
    partner.self = CreateWindowA("desktoppartner", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                 nullptr, nullptr);
    if (count > 1) {
        std::thread(readlines).detach();
        puts("ready");
        fflush(stdout);
    } else {
        partner.app = "Words";
        partner.topic = "Lists";
        partner.serving = partner.alone = true;
        SetTimer(nullptr, 0, 20000, timeout);
    }
    for (MSG m; GetMessageA(&m, nullptr, 0, 0) > 0;) {
        if (m.message != COMMANDLINE) {
            DispatchMessageA(&m);
            continue;
        }
        auto *line = reinterpret_cast<std::string *>(m.lParam);
        puts(obey(*line).c_str());
        fflush(stdout);
        delete line;
    }
    ExitProcess(0);
}
