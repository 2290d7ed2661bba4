// Fonts: those there are, sizes, weights and families.

#include "graphics/fonts.h"

#include "base/errors.h"
#include "graphics/colours.h"
#include "graphics/fontlist.h"
#include "graphics/textplot.h"
#include "tools/gallerysheets/page.h"
#include "tools/gallerysheets/sheets.h"

#include <string>
#include <vector>

namespace
{

// Draws with a font that is lost at once.
void sample(fonthandle font, int32_t x, int32_t y, const char *text)
{
    fontset(font, FONTCLEAR, INK, 0);
    fontalign(0);
    plottext(text, TEXTOSUNITS, x, y);
    fontlose(font);
}

struct met {
    std::string face, full;
    fontsummary summary;
};

errorblock *note(const char *face, const char *full, const fontsummary *summary, intptr_t argument)
{
    reinterpret_cast<std::vector<met> *>(argument)->push_back({face, full, *summary});
    return nullptr;
}

errorblock *listed()
{
    heading(20, -30, "The outline fonts of the first charset");
    std::vector<met> fonts;
    fontrecord record = {};
    errorblock *err = fontlist(&record, note, reinterpret_cast<intptr_t>(&fonts));
    for (size_t i = 0; !err && i < fonts.size() && i < 40; i++) {
        const met &f = fonts[i];
        int32_t y = -60 - static_cast<int32_t>(i) * 20;
        labelf(20, y, "%s (%s), weight %d, family %d%s", f.face.c_str(), f.full.c_str(),
               f.summary.weight, f.summary.family, f.summary.italic ? ", italic" : "");
        fonthandle font;
        fontfindall(f.face.c_str(), f.summary.charset, f.summary.weight, f.summary.italic, 0, 0, 0,
                    14, 0, &font);
        sample(font, 470, y, "Quillmere \xE9\x80 0123");
    }
    return err;
}

void sizes()
{
    heading(680, -30, "Sizes and widths");
    int32_t y = -60;
    for (int32_t points : {6, 7, 8, 9, 10, 12, 14, 18, 24, 36}) {
        fonthandle font;
        y -= points * 5 / 2 + 8;
        fontfindpixel("Arial", 0, points * 96 / 72, 0, &font);
        sample(font, 680, y, std::to_string(points).c_str());
        fontfindsize("Arial", 0, points * 16, 0, 0, &font);
        sample(font, 750, y, "Size");
    }
    for (int32_t width = 2; width < 10; width++) {
        fonthandle font;
        fontfindsize("Arial", width * 16, 10 * 16, 0, 0, &font);
        y -= 32;
        sample(font, 680, y, "Width");
    }
}

void weights()
{
    heading(980, -30, "Weights and slant");
    for (int32_t i = 1; i < 10; i++) {
        fonthandle font;
        fontfindall("Arial", 1, i * 100, i & 1, 0, 0, 0, 20, 0, &font);
        sample(font, 980, -40 - i * 28, ("Weight " + std::to_string(i * 100)).c_str());
    }
    heading(980, -340, "Families 1 to 5, any pitch, fixed, variable");
    for (int32_t i = 0; i < 15; i++) {
        fonthandle font;
        fontfindall("", 1, 400, 0, i / 3 + 1, i % 3, 0, 20, 0, &font);
        sample(font, 980 + i % 3 * 125, -370 - i / 3 * 28, "Family il");
    }
}

errorblock *existing()
{
    heading(980, -540, "fontexists");
    int32_t y = -565;
    errorblock *err = nullptr;
    for (const char *name : {"Arial", "Courier New", "No Such Font"}) {
        int32_t there = -1;
        if (!err) err = fontexists(name, &there);
        labelf(980, y, "%s: %d", name, there);
        y -= 20;
    }
    return err;
}

} // namespace

errorblock *drawfonts(const page *)
{
    errorblock *err = forkeeping ? nullptr : listed();
    sizes();
    weights();
    return err ? err : existing();
}
