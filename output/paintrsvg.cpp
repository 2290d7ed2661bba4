#include "output/paint.h"

#include "base/errorcodes.h"
#include "base/errors.h"

#include <cairo-pdf.h>
#include <librsvg/rsvg.h>

namespace
{

constexpr double POINTS = 72.0 / 96; // to a unit of SVG

struct drawing {
    RsvgHandle *handle;
    double width, height; // units
};

errorblock *failure(const char *what)
{
    return makeerrortext(ECR, "The drawing could not be made: %s.", what);
}

errorblock *drawingopen(const std::string &page, drawing *out)
{
    *out = {};
    GError *error = nullptr;
    auto *bytes = reinterpret_cast<const guint8 *>(page.data());
    out->handle = rsvg_handle_new_from_data(bytes, page.size(), &error);
    if (!out->handle) {
        errorblock *err = failure(error->message);
        g_error_free(error);
        return err;
    }
    rsvg_handle_set_dpi(out->handle, 96);
    rsvg_handle_get_intrinsic_size_in_pixels(out->handle, &out->width, &out->height);
    return nullptr;
}

errorblock *drawingshow(const drawing &page, double scale, cairo_t *on)
{
    GError *error = nullptr;
    RsvgRectangle place = {0, 0, page.width * scale, page.height * scale};
    if (rsvg_handle_render_document(page.handle, on, &place, &error)) return nullptr;
    errorblock *err = failure(error->message);
    g_error_free(error);
    return err;
}

cairo_status_t take(void *to, const unsigned char *bytes, unsigned int size)
{
    static_cast<std::string *>(to)->append(reinterpret_cast<const char *>(bytes), size);
    return CAIRO_STATUS_SUCCESS;
}

// What cairo says in the end is the first failure of all.
errorblock *finish(cairo_t *on, cairo_surface_t *surface)
{
    cairo_status_t status = cairo_status(on);
    cairo_destroy(on);
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    return status == CAIRO_STATUS_SUCCESS ? nullptr : failure(cairo_status_to_string(status));
}

} // namespace

errorblock *paintpdf(const std::vector<std::string> &pages, std::string *bytes)
{
    bytes->clear();
    cairo_surface_t *surface = cairo_pdf_surface_create_for_stream(take, bytes, 1, 1);
    cairo_t *on = cairo_create(surface);
    errorblock *err = nullptr;
    for (const std::string &text : pages) {
        drawing page;
        if (!err) err = drawingopen(text, &page);
        if (err) break;
        cairo_pdf_surface_set_size(surface, page.width * POINTS, page.height * POINTS);
        err = drawingshow(page, POINTS, on);
        cairo_show_page(on);
        g_object_unref(page.handle);
    }
    errorblock *late = finish(on, surface);
    return err ? err : late;
}

errorblock *paintpng(const std::vector<std::string> &pages, std::string *bytes)
{
    constexpr double SCALE = 2;
    drawing page;
    errorblock *err = drawingopen(pages.front(), &page);
    if (err) return err;
    bytes->clear();
    cairo_surface_t *surface =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(page.width * SCALE),
                                   static_cast<int>(page.height * SCALE));
    cairo_t *on = cairo_create(surface);
    cairo_set_source_rgb(on, 1, 1, 1);
    cairo_paint(on);
    err = drawingshow(page, SCALE, on);
    g_object_unref(page.handle);
    if (!err && cairo_surface_write_to_png_stream(surface, take, bytes) != CAIRO_STATUS_SUCCESS)
        err = failure("no picture");
    errorblock *late = finish(on, surface);
    return err ? err : late;
}
