// Writes pictures as SVG.
#include "swatches/picture.h"

#include <cmath>
#include <cstdio>
#include <set>

namespace host::swatches {

namespace {

// Escapes text for an element or a quoted attribute. Removes control characters, which XML does not allow.
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

std::string hue(const ScreenColor& color) {
    const auto byte = [](double value) { return static_cast<unsigned>(std::lround(value * 255.0)); };
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte(color.red), byte(color.green), byte(color.blue));
    return text;
}

// Returns the attributes of a colour in a role: "fill", "stroke" or "stop".
std::string paint(const std::string& role, const ScreenColor& color) {
    const std::string property = role == "stop" ? "stop-color" : role;
    return attribute(property.c_str(), hue(color)) +
           (color.alpha < 1.0 ? attribute((role + "-opacity").c_str(), color.alpha) : "");
}

std::string rectangle(const Frame& frame, const std::string& painted) {
    return "<rect" + attribute("x", frame.x) + attribute("y", frame.y) + attribute("width", frame.width) +
           attribute("height", frame.height) + (frame.radius > 0.0 ? attribute("rx", frame.radius) : "") + painted + "/>\n";
}

std::string drawn(const Box& box) { return rectangle(box.frame, paint("fill", box.fill)); }

std::string drawn(const Halves& halves) { return rectangle(halves.frame, attribute("fill", "url(#halves)")); }

// The path runs along the middle of the line, so that the line lies inside the frame.
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

std::string veilName(const BoundedLabel& bounded) {
    return (bounded.label.align == Align::right ? "veil-left-" : "veil-") + hue(bounded.background).substr(1);
}

// A nested viewport clips the text, and a veil fades it out at the end. The veil begins where the width ends, so it does
// not cover text that fits. The title has the complete text, which viewers show under a pointer.
std::string drawn(const BoundedLabel& bounded) {
    const double veil = 8.0, size = bounded.label.size, width = bounded.width + veil;
    const bool fromRight = bounded.label.align == Align::right;
    Label label = bounded.label;
    label.x = fromRight ? width : 0.0;
    label.y = 1.5 * size;
    return "<svg" + attribute("x", bounded.label.x - label.x) + attribute("y", bounded.label.y - label.y) +
           attribute("width", width) + attribute("height", 2 * size) + "><title>" + escaped(label.text) + "</title>\n" +
           drawn(label) +
           rectangle({fromRight ? 0.0 : bounded.width, 0, veil, 2 * size, 0},
                     attribute("fill", "url(#" + veilName(bounded) + ")")) +
           "</svg>\n";
}

std::string gradient(const std::string& name, const std::string& stops) {
    return "<linearGradient" + attribute("id", name) + ">" + stops + "</linearGradient>\n";
}

std::string stop(double offset, const ScreenColor& color) {
    return "<stop" + attribute("offset", offset) + paint("stop", color) + "/>";
}

std::string definitions(const Picture& picture) {
    const ScreenColor white = {1, 1, 1, 1}, black = {0, 0, 0, 1};
    std::string text = gradient("halves", stop(0.5, white) + stop(0.5, black));
    std::set<std::string> defined;
    for (const Shape& shape : picture.shapes) {
        const auto* const bounded = std::get_if<BoundedLabel>(&shape);
        if (!bounded || !defined.insert(veilName(*bounded)).second) continue;
        ScreenColor near = bounded->background, far = bounded->background;
        (bounded->label.align == Align::right ? far : near).alpha = 0.0;
        text += gradient(veilName(*bounded), stop(0, near) + stop(1, far));
    }
    return text;
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
                       definitions(picture) + "</defs>\n";
    for (const Shape& shape : picture.shapes)
        text += std::visit([](const auto& drawable) { return drawn(drawable); }, shape);
    return text + "</svg>\n";
}

} // namespace host::swatches
