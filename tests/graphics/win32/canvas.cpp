#include "tests/graphics/win32/canvas.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>

static constexpr uint32_t WHITE = 0xFFFFFF;

int gdiobjects()
{
    if (DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return static_cast<int>(told);
    // Wine doesn't tell, but takes the number of a handle for the handle.
    int count = 0;
    for (UINT_PTR number = 1; number < 0x10000; number++)
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(number)) != 0;
    return count;
}

canvas::canvas(int32_t w, int32_t h, int32_t scale) : width(w), height(h)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = w;
    info.bmiHeader.biHeight = -h; // the first row is the top one
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void *memory = nullptr;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP made = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &memory, nullptr, 0);
    REQUIRE(made);
    bits = static_cast<uint32_t *>(memory);
    bitmap = reinterpret_cast<intptr_t>(made);
    before = reinterpret_cast<intptr_t>(SelectObject(dc, made));
    clear();

    REQUIRE_FALSE(surfacenew(&drawing));
    drawing->dc = reinterpret_cast<intptr_t>(dc);
    surfacesetorigin(0, 0, drawing);
    drawing->scalex = drawing->scaley = scale;
    surfaceshifts(drawing);
    setcurrentsurface(drawing);
}

canvas::~canvas()
{
    HDC dc = reinterpret_cast<HDC>(drawing->dc);
    if (currentsurface == drawing) clearcurrentsurface();
    surfacerelease(drawing);
    surfacefree(drawing);
    SelectObject(dc, reinterpret_cast<HGDIOBJ>(before));
    DeleteObject(reinterpret_cast<HGDIOBJ>(bitmap));
    DeleteDC(dc);
}

uint32_t *canvas::row(int32_t y) const
{
    return bits + y * width;
}

uint32_t canvas::colour(int32_t x, int32_t y) const
{
    uint32_t stored = row(y)[x]; // blue lowest
    return (stored & 255) << 16 | (stored & 0xFF00) | (stored >> 16 & 255);
}

uint32_t canvas::at(int32_t x, int32_t y) const
{
    bool inside = x >= 0 && y >= 0 && x < width && y < height;
    REQUIRE(inside);
    GdiFlush();
    return colour(x, y);
}

void canvas::clear(uint32_t fill)
{
    GdiFlush();
    uint32_t stored = (fill & 255) << 16 | (fill & 0xFF00) | (fill >> 16 & 255);
    std::fill_n(bits, width * height, stored);
}

std::string canvas::picture() const
{
    GdiFlush();
    std::string lines;
    for (int32_t y = 0; y < height; y++) {
        for (int32_t x = 0; x < width; x++)
            lines += colour(x, y) == WHITE ? '.' : colour(x, y) == 0 ? '#' : '?';
        lines += '\n';
    }
    return lines;
}

canvas::extent canvas::drawn() const
{
    GdiFlush();
    extent box = {width, height, -1, -1};
    for (int32_t y = 0; y < height; y++)
        for (int32_t x = 0; x < width; x++)
            if (colour(x, y) != WHITE)
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
                       std::max(box.bottom, y)};
    return box;
}

int32_t canvas::count() const
{
    GdiFlush();
    int32_t pixels = 0;
    for (int32_t y = 0; y < height; y++)
        for (int32_t x = 0; x < width; x++)
            pixels += colour(x, y) != WHITE;
    return pixels;
}

bool canvas::blank() const
{
    return count() == 0;
}

std::string rows(const std::string &text)
{
    std::string lines = text + '\n';
    std::replace(lines.begin(), lines.end(), ' ', '\n');
    return lines;
}
