#include "support/native.h"

namespace chroma::test {

id string(std::string_view text) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    return send(CFStringCreateWithBytes(nullptr, bytes, static_cast<CFIndex>(text.size()), 0x08000100, 0), "autorelease");
}

std::string textOf(id string) { return string ? send<const char*>(string, "UTF8String") : "(nil)"; }

id calibratedRGB(float red, float green, float blue, float alpha) {
    return sendClass("NSColor", "colorWithCalibratedRed:green:blue:alpha:", red, green, blue, alpha);
}

id standardSpace(const char* message) { return sendClass("NSColorSpace", message); }

id colorIn(id space, std::initializer_list<float> components) {
    return sendClass("NSColor", "colorWithColorSpace:components:count:", space, components.begin(),
                     static_cast<std::intptr_t>(components.size()));
}

std::vector<float> componentsOf(id color) {
    std::vector<float> components(color ? static_cast<std::size_t>(send<std::intptr_t>(color, "numberOfComponents")) : 0);
    send<void>(color, "getComponents:", components.data());
    return components;
}

} // namespace chroma::test
