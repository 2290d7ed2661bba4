#include "app/apperrors.h"

#include "base/errorcodes.h"
#include "base/errors.h"

namespace
{

const errorrow approws[] = {
    {ENOTTYPE, "{ENOTTYPE}"}, {EREPDEC, "{EREPDEC}"}, {EREPNEG, "{EREPNEG}"},
    {EBADVAL, "{EBADVAL}"},   {EBU, "{EBU}"},         {EBD, "{EBD}"},
    {EBB, "{EBB}"},           {EID, "{EID}"},         {EPCD, "{EPCD}"},
    {EPCL, "{EPCL}"},         {ECR, "{ECR}"},         {EBADBITS, "{EBADBITS}"},
    {EC00, "{EC00}"},         {EC01, "{EC01}"},       {EC02, "{EC02}"},
    {EMODE, "{EMODE}"},       {ED00, "{ED00}"},       {EICO0, "{EICO0}"},
    {ENMW, "{ENMW}"},         {ENTS, "{ENTS}"},       {EASW, "{EASW}"},
    {EMDC, "{EMDC}"},         {ENUD, "{ENUD}"},       {EDAX, "{EDAX}"},
    {ENOD, "{ENOD}"},         {EASP, "{EASP}"},       {EDCOLD, "{EDCOLD}"},
    {EDCAPS, "{EDCAPS}"},     {EAMAT, "{EAMAT}"},     {ENOSAVE, "{ENOSAVE}"},
    {EVM00, "{EVM00}"},       {ES00, "{ES00}"},       {0, nullptr},
};

errornode appnode;

} // namespace

errorblock *apperrors()
{
    return adderrors(approws, &appnode);
}
