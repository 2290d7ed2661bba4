// The library's own errors. Most of the rows are made by nothing any more; the
// numbers stay taken. There is no 25 and no 27.

#include "base/errors.h"

namespace
{

const errorrow libraryrows[] = {
    {1, "Not enough memory, or not within *desktop world."},
    {ERRORMEMORY, "{EME}"},
    {ERRORREAD, "{ERD}"},
    {ERRORWRITE, "{EWR}"},
    {ERRORCORRUPTMEMORY, "Memory is corrupt!"},
    {ERRORINTEGER, "{EINT}"},
    {ERRORTEMPLATE, "{ETEMP}"},
    {ERRORNOFILE, "{ENOTF}"},
    {9, "{ESVDG}"},
    {10, "{ENOWS}"},
    {11, "{EUXDS}"},
    {12, "{EUXRF}"},
    {13, "{EMEMAF}"},
    {14, "{EMEMBF}"},
    {15, "{EMEMAD}"},
    {16, "{EMEMFE}"},
    {17, "{EMEMCH}"},
    {18, "{EMEMBAD}"},
    {19, "{ENOTOKVAL}"},
    {ERRORNOEVENT, "{ENOEVENT}"},
    {ERRORTEMPLATETAG, "{ETEMPX}"},
    {22, "{ETEMPF}"},
    {ERRORQUIET, "{EREP}"},
    {ERRORSAVECANCELLED, "{ESCAN}"},
    {ERRORLOADCANCELLED, "{ELCAN}"},
    {ERRORNOTFOUND, "{ENOTFOUND}"},
    {29, "{ENOPRINTER}"},
    {ERRORMAXSTRING, "{EMAXSTRING}"},
    {31, "{EUNKFT}"},
    {0, nullptr},
};

errornode librarynode;

} // namespace

errorblock *taskerrors()
{
    return adderrors(libraryrows, &librarynode);
}
