#include "output/paint.h"

#include "base/errorcodes.h"
#include "base/errors.h"

namespace
{

errorblock *refused(const char *kind)
{
    return makeerrortext(ECR, "This quill makes no %s files. A .svg can be made into one.", kind);
}

} // namespace

errorblock *paintpdf(const std::vector<std::string> &, std::string *)
{
    return refused("PDF");
}

errorblock *paintpng(const std::vector<std::string> &, std::string *)
{
    return refused("PNG");
}
