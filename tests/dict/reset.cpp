#include "base/flex.h"
#include "base/platformfault.h"
#include "base/text.h"
#include "dict/dictset.h"
#include "tests/support/runner.h"
#include "tools/headless.h"

// Tests make records of dicts by hand too: whatever holds blocks gives them up.
void modulesreset()
{
    static const std::string directory = dictdirectory; // the one at start
    flexfailafter(-1);
    platformfault = {};
    for (dictrec &record : dicts) {
        dictfree(&record.dict);
        record = {};
    }
    ndicts = 0;
    dictset = {};
    strcopyn(dictdirectory, directory.c_str(), sizeof dictdirectory);
    headlessreset();
}
