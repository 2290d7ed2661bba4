// Grids of other programs: any bytes as a file of each format. What is taken for a
// grid is written as each format and read again, with all that the format holds.

#include "output/exchange.h"

#include "grid/grid.h"
#include "grid/gridpicture.h"
#include "tests/fuzz/fuzz.h"

namespace
{

std::string drawn()
{
    std::string text;
    picturetextwrite(&text);
    return text;
}

void checkagain(const char *name)
{
    std::string before = drawn(), bytes, left, again;
    const exchangeformat *format = exchangefind(name);
    format->write(&bytes, &left);
    if (!format->read) return;
    FUZZCHECK(!format->read(bytes, &again));
    FUZZCHECK(again.empty());
    if (left.empty() && std::string(name) != "puz") // which has capitals alone
        FUZZCHECK(drawn() == before);
}

} // namespace

void fuzztarget(fuzzfeed feed)
{
    constexpr const char *names[] = {"ipuz", "puz", "csv", "txt", "svg"};
    constexpr size_t READ = 4; // of these
    size_t chosen = fuzzbyte(&feed) % READ;
    std::string bytes = fuzzrest(&feed), left;
    gridreset();
    if (exchangefind(names[chosen])->read(bytes, &left)) return;
    FUZZCHECK(grid.width >= 1 && grid.width <= GRIDMAX);
    FUZZCHECK(grid.height >= 1 && grid.height <= GRIDMAX);
    for (const char *name : names)
        checkagain(name);
}
