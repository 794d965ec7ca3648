// Pictures as PNG, drawn by cairo.
#include "swatches/picture.h"

#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <cmath>
#include <memory>
#include <stdexcept>

namespace host::swatches {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double scale = 2.0; // for screens of today

struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

void choose(cairo_t* cairo, const ScreenColor& color) {
    cairo_set_source_rgba(cairo, color.red, color.green, color.blue, color.alpha);
}

void trace(cairo_t* cairo, const Frame& f) {
    const double right = f.x + f.width - f.radius, bottom = f.y + f.height - f.radius;
    cairo_new_path(cairo);
    cairo_arc(cairo, right, f.y + f.radius, f.radius, -pi / 2, 0);
    cairo_arc(cairo, right, bottom, f.radius, 0, pi / 2);
    cairo_arc(cairo, f.x + f.radius, bottom, f.radius, pi / 2, pi);
    cairo_arc(cairo, f.x + f.radius, f.y + f.radius, f.radius, pi, 3 * pi / 2);
    cairo_close_path(cairo);
}

void draw(cairo_t* cairo, const Box& box) {
    trace(cairo, box.frame);
    choose(cairo, box.fill);
    cairo_fill(cairo);
}

// Squares in the picture's own grid, so that boards beside each other match.
void draw(cairo_t* cairo, const Checkerboard& board) {
    const Frame& f = board.frame;
    const auto first = [](double start) { return static_cast<int>(std::floor(start / checkerSize)); };
    cairo_save(cairo);
    trace(cairo, f);
    cairo_clip(cairo);
    choose(cairo, checkerLight);
    cairo_paint(cairo);
    choose(cairo, checkerDark);
    for (int row = first(f.y); row * checkerSize < f.y + f.height; ++row) {
        for (int column = first(f.x); column * checkerSize < f.x + f.width; ++column) {
            if ((row + column) % 2 == 0)
                cairo_rectangle(cairo, column * checkerSize, row * checkerSize, checkerSize, checkerSize);
        }
    }
    cairo_fill(cairo);
    cairo_restore(cairo);
}

void draw(cairo_t* cairo, const Outline& outline) {
    const Frame& f = outline.frame;
    trace(cairo, {f.x + 0.5, f.y + 0.5, f.width - 1.0, f.height - 1.0, f.radius});
    choose(cairo, outline.color);
    cairo_set_line_width(cairo, 1.0);
    cairo_stroke(cairo);
}

void draw(cairo_t* cairo, const Label& label) {
    const bool mono = label.typeface == Typeface::monospaced, bold = label.typeface == Typeface::bold;
    cairo_select_font_face(cairo, mono ? "DejaVu Sans Mono" : "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cairo, label.size);
    cairo_text_extents_t extents;
    cairo_text_extents(cairo, label.text.c_str(), &extents);
    choose(cairo, label.color);
    cairo_move_to(cairo, label.align == Align::right ? label.x - extents.x_advance : label.x, label.y);
    cairo_show_text(cairo, label.text.c_str());
}

} // namespace

void writePNG(const Picture& picture, const std::string& file) {
    const auto pixels = [](double length) { return static_cast<int>(std::ceil(length * scale)); };
    std::unique_ptr<cairo_surface_t, Release> surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels(picture.width), pixels(picture.height)));
    {
        const std::unique_ptr<cairo_t, Release> cairo(cairo_create(surface.get()));
        cairo_scale(cairo.get(), scale, scale);
        for (const Shape& shape : picture.shapes)
            std::visit([&](const auto& drawable) { draw(cairo.get(), drawable); }, shape);
        if (cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS)
            throw std::runtime_error(file + ": " + cairo_status_to_string(cairo_status(cairo.get())));
    }
    const cairo_status_t status = cairo_surface_write_to_png(surface.get(), file.c_str());
    surface.reset();
    cairo_debug_reset_static_data(); // the fonts that are kept for a next picture
    FcFini();
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(file + ": " + cairo_status_to_string(status));
}

} // namespace host::swatches
