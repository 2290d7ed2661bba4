// base/errorcodes.h - the codes of the application's own errors.
//
// They are numbers only: the texts are the application's, in app/apperrors.cpp.
// Each is named after the catalogue key that its table row holds.
#pragma once

#include <cstdint>

// Files.
constexpr uint32_t ENOTTYPE = 256;
constexpr uint32_t ECR = 283;

// Numbers and units. Nothing makes these; their rows stand all the same.
constexpr uint32_t EREPDEC = 257;
constexpr uint32_t EREPNEG = 258;
constexpr uint32_t EBADVAL = 259;
constexpr uint32_t EBU = 277;
constexpr uint32_t EBD = 278;
constexpr uint32_t EBB = 279;
constexpr uint32_t EID = 280;
constexpr uint32_t EPCD = 281;
constexpr uint32_t EPCL = 282;

// Grids, dictionaries and searches.
constexpr uint32_t ENMW = 516;
constexpr uint32_t ENTS = 517;
constexpr uint32_t EASW = 518;
constexpr uint32_t EMDC = 519;
constexpr uint32_t ENUD = 520;
constexpr uint32_t EDAX = 521;
constexpr uint32_t ENOD = 528;
constexpr uint32_t EASP = 529;
constexpr uint32_t EDCOLD = 530;
constexpr uint32_t EAMAT = 531;
constexpr uint32_t ENOSAVE = 532;
constexpr uint32_t EDCAPS = 533;
// Their texts say what is wrong, so they have no row.
constexpr uint32_t EDNAME = 534;
constexpr uint32_t EFOLDER = 535;
constexpr uint32_t EPICTURE = 536;

// Pictures and the rest.
constexpr uint32_t EBADBITS = 512;
constexpr uint32_t EC00 = 513;
constexpr uint32_t EC01 = 514;
constexpr uint32_t EC02 = 515;
constexpr uint32_t EVM00 = 768;
constexpr uint32_t ES00 = 1024;
constexpr uint32_t EMODE = 1280;
constexpr uint32_t ED00 = 1552;
constexpr uint32_t EICO0 = 1553;
