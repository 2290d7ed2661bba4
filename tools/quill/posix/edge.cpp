#include "tools/quill/edge.h"

#include "base/encoding.h"

#include <csignal>
#include <unistd.h>

namespace
{

volatile std::sig_atomic_t stopped;

// The second Ctrl+C is the system's own: it ends the program.
void interrupted(int)
{
    stopped = 1;
    std::signal(SIGINT, SIG_DFL);
}

} // namespace

void edgestart()
{
    std::signal(SIGINT, interrupted);
}

bool edgestopped()
{
    return stopped != 0;
}

bool edgeterminal()
{
    return isatty(STDERR_FILENO) != 0;
}

errorblock *edgein(const std::string &bytes, std::string *text)
{
    std::string out(bytes.size() + 1, 0); // never longer than its UTF-8
    int32_t length = 0;
    errorblock *err = utf8to1252(bytes.data(), static_cast<int32_t>(bytes.size()), out.data(),
                                 static_cast<int32_t>(out.size()), &length);
    out.resize(static_cast<size_t>(length));
    *text = out;
    return err;
}

std::string edgeout(const std::string &text)
{
    std::string out(text.size() * 3 + 1, 0); // three bytes a character at the most
    int32_t length = 0;
    cp1252toutf8(text.data(), static_cast<int32_t>(text.size()), out.data(),
                 static_cast<int32_t>(out.size()), &length);
    out.resize(static_cast<size_t>(length));
    return out;
}

errorblock *edgearguments(int count, char **words, std::vector<std::string> *out)
{
    errorblock *err = nullptr;
    for (int i = 0; i < count && !err; i++) {
        out->emplace_back();
        err = edgein(words[i], &out->back());
    }
    return err;
}
