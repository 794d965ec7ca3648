// Feeds untrusted declarations of class records. Each is refused with a position in it, or it is written from its parts and
// read again as the same declaration.
#include "require.h"

#include "model/declarations.h"

#include <charconv>
#include <cstdint>

using namespace host;
using fuzz::require;

namespace {

template <class Number, class... Format>
std::string digits(Number value, Format... format) {
    char buffer[32];
    return {buffer, std::to_chars(buffer, std::end(buffer), value, format...).ptr};
}

struct Writer {
    std::string operator()(std::monostate) const { return "nil"; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(HostInteger value) const { return digits(value); }
    std::string operator()(HostColor value) const { // as #RRGGBBAA
        const std::string all = digits((std::uint64_t{1} << 32) | (value << 8) | (value >> 24), 16);
        return "#" + all.substr(1);
    }
    std::string operator()(double value) const { return digits(value, std::chars_format::scientific); }
    std::string operator()(const std::string& value) const {
        std::string text = "\"";
        for (const char c : value)
            text.append(c == '"' ? 2 : 1, c);
        return text + "\"";
    }
};

std::string write(const Literal& literal) { return std::visit(Writer(), literal.value); }

std::string write(const Signature& signature) {
    std::string text;
    for (const Parameter& p : signature.parameters) {
        require(!p.paramArray || &p == &signature.parameters.back(), "a paramarray is last");
        if (!text.empty()) text += ",";
        if (p.byRef) text += "byref ";
        if (p.paramArray) text += "paramarray ";
        text += p.name + " as " + nameOf(p.paramArray ? p.type.element() : p.type);
        if (p.defaultValue) text += "=" + write(*p.defaultValue);
    }
    const std::string result = nameOf(signature.result);
    return signature.name + "(" + text + ")" + (result.empty() ? "" : " as " + result);
}

std::string write(const Constant& constant) { return constant.name + "=" + write(constant.value); }

template <class Declaration>
void readAndWrite(Declaration (*parse)(std::string_view), std::string_view text) {
    Declaration read;
    try {
        read = parse(text);
    } catch (const DeclarationError& error) {
        require(error.position <= text.size(), "the position of an error is in the text");
        return;
    }
    if constexpr (std::is_same_v<Declaration, Constant>) {
        if (std::holds_alternative<std::string>(read.value.value))
            require(text.substr(0, text.rfind('"') + 1).substr(text.find('"')) == write(read.value),
                    "the text of a constant does not change");
    }
    try {
        require(write(parse(write(read))) == write(read), "writing and reading a declaration changes nothing");
    } catch (const DeclarationError& error) {
        require(false, error.what());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    // Reads the text only once, because refusals are the slowest case.
    const std::size_t sign = text.find_first_of("(=");
    if (sign != text.npos && text[sign] == '=') {
        readAndWrite(parseConstant, text);
    } else {
        readAndWrite(parseSignature, text);
    }
    return 0;
}
