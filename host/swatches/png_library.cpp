// A separate library, which the host loads only when it draws PNG: it depends on three dozen libraries, whose loading must
// not slow down other commands.
#include "swatches/png_library.h"

#include <librsvg/rsvg.h>

#include <cmath>
#include <cstdio>
#include <memory>

namespace {

struct Release {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

template <class Kind>
using Owned = std::unique_ptr<Kind, Release>;

struct Output {
    ChromaWriteBytes write;
    void* context;
};

cairo_status_t passOn(void* output, const unsigned char* bytes, unsigned count) {
    const Output& to = *static_cast<const Output*>(output);
    return to.write(to.context, bytes, count) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

int failed(const char* why, char* message, size_t size) {
    std::snprintf(message, size, "%s", why);
    return 0;
}

} // namespace

int chromaMeasureSVG(const char* svg, size_t length, double* right, char* message, size_t messageSize) {
    GError* problem = nullptr;
    const Owned<RsvgHandle> handle(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg), length, &problem));
    if (!handle) return failed(Owned<GError>(problem)->message, message, messageSize);
    RsvgRectangle ink = {};
    if (!rsvg_handle_get_geometry_for_element(handle.get(), nullptr, &ink, nullptr, &problem))
        return failed(Owned<GError>(problem)->message, message, messageSize);
    *right = ink.x + ink.width;
    return 1;
}

int chromaDrawPNG(const char* svg, size_t length, double scale, ChromaWriteBytes write, void* context, char* message,
                  size_t messageSize) {
    GError* problem = nullptr;
    const Owned<RsvgHandle> handle(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg), length, &problem));
    if (!handle) return failed(Owned<GError>(problem)->message, message, messageSize);
    double width = 0, height = 0;
    rsvg_handle_get_intrinsic_size_in_pixels(handle.get(), &width, &height);
    const RsvgRectangle page = {0, 0, width * scale, height * scale};
    const Owned<cairo_surface_t> surface(cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, static_cast<int>(std::ceil(page.width)), static_cast<int>(std::ceil(page.height))));
    const Owned<cairo_t> cairo(cairo_create(surface.get()));
    if (!rsvg_handle_render_document(handle.get(), cairo.get(), &page, &problem))
        return failed(Owned<GError>(problem)->message, message, messageSize);
    Output output = {write, context};
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), passOn, &output);
    return status == CAIRO_STATUS_SUCCESS ? 1 : failed(cairo_status_to_string(status), message, messageSize);
}
