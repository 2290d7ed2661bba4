#include "output/paint.h"

#include "base/errorcodes.h"
#include "base/errors.h"
#include "output/posix/painter.h"

#include <dlfcn.h>
#include <filesystem>

namespace
{

// The painter beside the program, 0 without one.
paintfunction painterfind()
{
    std::error_code wrong;
    auto path = std::filesystem::read_symlink("/proc/self/exe", wrong);
    void *library = dlopen(path.replace_filename("libquillpaint.so").c_str(), RTLD_NOW);
    return library ? reinterpret_cast<paintfunction>(dlsym(library, PAINTNAME)) : nullptr;
}

void take(void *to, const unsigned char *bytes, unsigned int size)
{
    static_cast<std::string *>(to)->append(reinterpret_cast<const char *>(bytes), size);
}

errorblock *painted(bool pdf, const std::vector<std::string> &pages, std::string *bytes)
{
    paintfunction paint = painterfind();
    const char *kind = pdf ? "PDF" : "PNG";
    if (!paint)
        return makeerrortext(ECR, "This quill makes no %s files. A .svg can be made into one.",
                             kind);
    std::vector<const char *> texts;
    for (const std::string &page : pages)
        texts.push_back(page.c_str());
    std::string out; // bytes may be one of the pages
    const char *failure = paint(texts.data(), static_cast<int>(texts.size()), pdf, take, &out);
    if (failure) return makeerrortext(ECR, "The %s file could not be made: %s.", kind, failure);
    *bytes = out;
    return nullptr;
}

} // namespace

errorblock *paintpdf(const std::vector<std::string> &pages, std::string *bytes)
{
    return painted(true, pages, bytes);
}

errorblock *paintpng(const std::vector<std::string> &pages, std::string *bytes)
{
    return painted(false, pages, bytes);
}
