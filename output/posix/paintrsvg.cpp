#include "output/posix/painter.h"

#include <cairo-pdf.h>
#include <cstring>
#include <librsvg/rsvg.h>

namespace
{

constexpr double POINTS = 72.0 / 96; // to a unit of SVG
constexpr double PIXELS = 2;

struct {
    void (*take)(void *to, const unsigned char *bytes, unsigned int size);
    void *to;
} out;

cairo_status_t write(void *, const unsigned char *bytes, unsigned int size)
{
    out.take(out.to, bytes, size);
    return CAIRO_STATUS_SUCCESS;
}

const char *failure(GError *error)
{
    static char text[128];
    g_strlcpy(text, error->message, sizeof text);
    g_error_free(error);
    return text;
}

struct drawing {
    RsvgHandle *handle;
    double width, height; // units
};

const char *drawingopen(const char *page, drawing *into)
{
    GError *error = nullptr;
    into->handle =
        rsvg_handle_new_from_data(reinterpret_cast<const guint8 *>(page), strlen(page), &error);
    if (!into->handle) return failure(error);
    rsvg_handle_set_dpi(into->handle, 96);
    rsvg_handle_get_intrinsic_size_in_pixels(into->handle, &into->width, &into->height);
    return nullptr;
}

const char *drawingshow(const drawing &page, double scale, cairo_t *on)
{
    GError *error = nullptr;
    RsvgRectangle place = {0, 0, page.width * scale, page.height * scale};
    return rsvg_handle_render_document(page.handle, on, &place, &error) ? nullptr : failure(error);
}

// What cairo says in the end is the first failure of all.
const char *finish(cairo_t *on, cairo_surface_t *surface)
{
    cairo_status_t status = cairo_status(on);
    cairo_destroy(on);
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    return status == CAIRO_STATUS_SUCCESS ? nullptr : cairo_status_to_string(status);
}

const char *pdf(const char *const *pages, int count)
{
    cairo_surface_t *surface = cairo_pdf_surface_create_for_stream(write, nullptr, 1, 1);
    cairo_t *on = cairo_create(surface);
    const char *wrong = nullptr;
    for (int n = 0; n < count && !wrong; n++) {
        drawing page;
        wrong = drawingopen(pages[n], &page);
        if (wrong) break;
        cairo_pdf_surface_set_size(surface, page.width * POINTS, page.height * POINTS);
        wrong = drawingshow(page, POINTS, on);
        cairo_show_page(on);
        g_object_unref(page.handle);
    }
    const char *late = finish(on, surface);
    return wrong ? wrong : late;
}

const char *png(const char *text)
{
    drawing page;
    const char *wrong = drawingopen(text, &page);
    if (wrong) return wrong;
    cairo_surface_t *surface =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(page.width * PIXELS),
                                   static_cast<int>(page.height * PIXELS));
    cairo_t *on = cairo_create(surface);
    cairo_set_source_rgb(on, 1, 1, 1);
    cairo_paint(on);
    wrong = drawingshow(page, PIXELS, on);
    g_object_unref(page.handle);
    if (!wrong &&
        cairo_surface_write_to_png_stream(surface, write, nullptr) != CAIRO_STATUS_SUCCESS)
        wrong = "no picture";
    const char *late = finish(on, surface);
    return wrong ? wrong : late;
}

} // namespace

extern "C" const char *quillpaint(const char *const *pages, int count, bool aspdf,
                                  void (*take)(void *, const unsigned char *, unsigned int),
                                  void *to);

const char *quillpaint(const char *const *pages, int count, bool aspdf,
                       void (*take)(void *, const unsigned char *, unsigned int), void *to)
{
    out = {take, to};
    return aspdf ? pdf(pages, count) : png(pages[0]);
}
