// Pictures as SVG.
#include "swatches/picture.h"

#include <cmath>
#include <cstdio>

namespace host::swatches {

namespace {

// Text for an element or a quoted attribute. Control characters, which XML cannot hold, are left out.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
        case '<': result += "&lt;"; break;
        case '>': result += "&gt;"; break;
        case '&': result += "&amp;"; break;
        case '"': result += "&quot;"; break;
        default:
            if (static_cast<unsigned char>(c) >= 0x20) result += c;
        }
    }
    return result;
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    std::string result = text;
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.') result.pop_back();
    return result;
}

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + escaped(value) + '"';
}

std::string attribute(const char* name, double value) { return attribute(name, number(value)); }

// As `role`, "fill" or "stroke".
std::string paint(const std::string& role, const ScreenColor& color) {
    const auto byte = [](double value) { return static_cast<unsigned>(std::lround(value * 255.0)); };
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte(color.red), byte(color.green), byte(color.blue));
    const std::string opacity = color.alpha < 1.0 ? attribute((role + "-opacity").c_str(), color.alpha) : "";
    return attribute(role.c_str(), text) + opacity;
}

std::string rectangle(const Frame& frame, const std::string& painted) {
    return "<rect" + attribute("x", frame.x) + attribute("y", frame.y) + attribute("width", frame.width) +
           attribute("height", frame.height) + (frame.radius > 0.0 ? attribute("rx", frame.radius) : "") + painted + "/>\n";
}

std::string drawn(const Box& box) { return rectangle(box.frame, paint("fill", box.fill)); }

std::string drawn(const Checkerboard& board) { return rectangle(board.frame, attribute("fill", "url(#checkers)")); }

// Along the middle of the line, which then lies inside the frame.
std::string drawn(const Outline& outline) {
    const Frame& f = outline.frame;
    return rectangle({f.x + 0.5, f.y + 0.5, f.width - 1.0, f.height - 1.0, f.radius},
                     attribute("fill", "none") + paint("stroke", outline.color));
}

std::string drawn(const Label& label) {
    static const char* const classes[] = {"plain", "bold", "mono"};
    return "<text" + attribute("x", label.x) + attribute("y", label.y) + attribute("font-size", label.size) +
           attribute("class", classes[static_cast<int>(label.typeface)]) +
           (label.align == Align::right ? attribute("text-anchor", "end") : "") + paint("fill", label.color) + ">" +
           escaped(label.text) + "</text>\n";
}

std::string checkers() {
    const Frame dark[] = {{0, 0, checkerSize, checkerSize, 0}, {checkerSize, checkerSize, checkerSize, checkerSize, 0}};
    const Frame whole = {0, 0, 2 * checkerSize, 2 * checkerSize, 0};
    return "<pattern id=\"checkers\" patternUnits=\"userSpaceOnUse\"" + attribute("width", whole.width) +
           attribute("height", whole.height) + ">\n" + rectangle(whole, paint("fill", checkerLight)) +
           rectangle(dark[0], paint("fill", checkerDark)) + rectangle(dark[1], paint("fill", checkerDark)) + "</pattern>\n";
}

} // namespace

std::string svgOf(const Picture& picture) {
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + attribute("width", picture.width) +
                       attribute("height", picture.height) +
                       attribute("viewBox", "0 0 " + number(picture.width) + " " + number(picture.height)) + ">\n<title>" +
                       escaped(picture.title) +
                       "</title>\n<style>\n"
                       "text { font-family: \"DejaVu Sans\", Verdana, sans-serif; }\n"
                       ".bold { font-weight: bold; }\n"
                       ".mono { font-family: \"DejaVu Sans Mono\", Menlo, monospace; }\n"
                       "</style>\n<defs>\n" +
                       checkers() + "</defs>\n";
    for (const Shape& shape : picture.shapes)
        text += std::visit([](const auto& drawable) { return drawn(drawable); }, shape);
    return text + "</svg>\n";
}

} // namespace host::swatches
