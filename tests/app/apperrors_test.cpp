#include "app/apperrors.h"
#include "base/errors.h"
#include "base/messages.h"

#include <doctest/doctest.h>

#include <string>

TEST_CASE("what the user reads of each of the application's errors")
{
    // A bare key where the catalogue has no entry, on purpose.
    const struct {
        uint32_t code;
        const char *text;
    } rows[] = {
        {256, "Unidentified file type."},
        {257, "Repeated decimal point"},
        {258, "Repeated minus sign"},
        {259, "Bad input value"},
        {277, "Unknown type of units"},
        {278, "Bad mixture of unit dimensions"},
        {279, "Missing ')' in expression"},
        {280, "Illegal dimension in expression"},
        {281, "Attempt to cast units to %"},
        {282, "Can't have % on left of expression"},
        {283, "Corruption in file."},
        {512, "EBADBITS"},
        {513, "EC00"},
        {514, "EC01"},
        {515, "EC02"},
        {516, "Need marked word!"},
        {517, "Nothing to solve!"},
        {518, "An anagram must be a single marked word!"},
        {519, "Cannot load anymore dictionaries for this document."},
        {520, "ENUD"},
        {521, "Dictionary already exists."},
        {522, "Error not found."},
        {528, "No dictionaries loaded!"},
        {529, "Can't have space in anagram"},
        {530, "Dictionary is too old."},
        {531, "The marked area of grid must have the same number of characters as in the anagram "
              "text."},
        {532, "Current grid has never been saved, use Save Grid As."},
        {533, "Dictionary format not supported."},
        {768, "EVM00"},
        {1024, "ES00"},
        {1280, "Unknown sprite mode."},
        {1552, "ED00"},
        {1553, "EICO0"},
        {6, "Bad integer."},
        {22, "Template file not found."},
        {28, "File %s not found."},
    };
    initerror();
    taskerrors();
    apperrors();
    REQUIRE(inittrans() == nullptr);
    REQUIRE(addtrans(RESOURCESFOLDER, "Messages.txt") == nullptr);
    for (const auto &row : rows) {
        errorblock *err = makeerror(row.code);
        CHECK(err->code == row.code);
        CHECK(std::string(err->text) == row.text);
    }
    endtrans();
}
