#include "model/declarations.h"

#include "text/literals.h"
#include "values/strings.h"

namespace host {

namespace {

std::string describe(const std::string& reason, std::size_t position, std::string_view text) {
    return reason + " at column " + std::to_string(position + 1) + " of \"" + std::string(text) + "\"";
}

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    Signature signature() {
        Signature result;
        result.name = name("a name");
        if (skip('(')) parameters(result);
        if (skipWord("as")) result.result = type();
        end();
        return result;
    }

    Constant constant() {
        Constant result;
        result.name = name("a name");
        expect('=');
        result.value = literal();
        end();
        return result;
    }

    Type completeType() {
        Type result = type();
        end();
        return result;
    }

private:
    [[noreturn]] void fail(const std::string& reason, std::size_t position) const {
        throw DeclarationError(reason, position, text_);
    }
    [[noreturn]] void failExpecting(const std::string& what) const { fail("expected " + what, at_); }

    void skipBlanks() {
        while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t'))
            ++at_;
    }

    char peek() {
        skipBlanks();
        return at_ < text_.size() ? text_[at_] : '\0';
    }

    bool skip(char c) {
        if (at_ >= text_.size() || peek() != c) return false;
        ++at_;
        return true;
    }

    void expect(char c) {
        if (!skip(c)) failExpecting(std::string("\"") + c + "\"");
    }

    std::string_view peekName() {
        if (!isNameStart(peek())) return {};
        std::size_t end = at_;
        while (end < text_.size() && isNamePart(text_[end]))
            ++end;
        return text_.substr(at_, end - at_);
    }

    bool skipWord(std::string_view word) {
        if (!equalIgnoringCase(peekName(), word)) return false;
        at_ += word.size();
        return true;
    }

    std::string name(const char* what) {
        const std::string_view found = peekName();
        if (found.empty()) failExpecting(what);
        at_ += found.size();
        return std::string(found);
    }

    void end() {
        skipBlanks();
        if (at_ != text_.size()) failExpecting("the end");
    }

    bool skipParentheses() {
        if (!skip('(')) return false;
        expect(')');
        return true;
    }

    Type type() {
        Type result = typeNamed(name("a type"));
        result.isArray = skipParentheses();
        return result;
    }

    void parameters(Signature& signature) {
        if (skip(')')) return;
        do {
            skipBlanks();
            const std::size_t start = at_;
            Parameter next = parameter();
            if (!signature.parameters.empty()) {
                const Parameter& last = signature.parameters.back();
                if (last.paramArray) fail("a parameter after the paramarray", start);
                if (last.defaultValue && !next.defaultValue)
                    fail("a parameter without a default after one with a default", start);
            }
            signature.parameters.push_back(std::move(next));
        } while (skip(','));
        expect(')');
    }

    Parameter parameter() {
        Parameter result;
        if (skipWord("byref")) {
            result.byRef = true;
        } else if (skipWord("paramarray")) {
            result.paramArray = true;
        }
        result.name = name("a parameter");
        const bool namedAsArray = skipParentheses();
        if (!skipWord("as")) failExpecting("\"as\"");
        skipBlanks();
        const std::size_t typeStart = at_;
        result.type = type();
        if (result.type.isArray && (namedAsArray || result.paramArray)) fail("an array of arrays", typeStart);
        if (namedAsArray && result.paramArray) fail("an array of arrays", typeStart);
        if (namedAsArray || result.paramArray) result.type.isArray = true;
        if (skip('=')) defaultValue(result);
        return result;
    }

    void defaultValue(Parameter& parameter) {
        skipBlanks();
        const std::size_t start = at_;
        if (parameter.byRef || parameter.paramArray) fail("a default for a byref or paramarray parameter", start);
        Literal value = literal();
        const Type& wanted = parameter.type;
        if (wanted.is(Kind::real) && std::holds_alternative<HostInteger>(value.value))
            value.value = static_cast<double>(std::get<HostInteger>(value.value));
        const bool fits = value.type() == wanted || (value.type().isNil() && wanted.isObjectReference());
        if (!fits) fail("a default of another type than " + nameOf(wanted), start);
        parameter.defaultValue = std::move(value);
    }

    Literal literal() {
        const char first = peek();
        const bool sign = first == '-' || first == '+';
        const std::size_t start = at_ + (sign ? 1 : 0);
        const auto at = [&](std::size_t i) { return i < text_.size() ? text_[i] : '\0'; };
        if (startsLiteral(at(start), at(start + 1)) && !(sign && (at(start) == '"' || at(start) == '#')))
            return scanned(start, first == '-');
        if (skipWord("true")) return {true};
        if (skipWord("false")) return {false};
        if (skipWord("nil")) return {};
        failExpecting("a value");
    }

    Literal scanned(std::size_t start, bool negative) {
        try {
            ScannedLiteral found = scanLiteral(text_.substr(start), negative);
            at_ = start + found.size;
            return std::visit([](auto& value) { return Literal{std::move(value)}; }, found.value);
        } catch (const LiteralError& error) {
            fail(error.message, start + error.offset);
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace

DeclarationError::DeclarationError(const std::string& reason, std::size_t where, std::string_view text)
    : std::runtime_error(describe(reason, where, text)), position(where) {}

Type Literal::type() const {
    struct {
        Type operator()(std::monostate) const { return Type::nil(); }
        Type operator()(bool) const { return Type::plain(Kind::boolean); }
        Type operator()(HostInteger) const { return Type::plain(Kind::integer); }
        Type operator()(double) const { return Type::plain(Kind::real); }
        Type operator()(HostColor) const { return Type::plain(Kind::color); }
        Type operator()(const std::string&) const { return Type::plain(Kind::string); }
    } visitor;
    return std::visit(visitor, value);
}

Slot Literal::newSlot() const {
    struct {
        Slot operator()(std::monostate) const { return Slot(); }
        Slot operator()(bool v) const { return Slot::ofBoolean(v); }
        Slot operator()(HostInteger v) const { return Slot::ofInteger(v); }
        Slot operator()(double v) const { return Slot::ofReal(v); }
        Slot operator()(HostColor v) const { return Slot::ofColor(v); }
        Slot operator()(const std::string& v) const { return Slot::ofString(newString(v)); }
    } visitor;
    return std::visit(visitor, value);
}

Signature parseSignature(std::string_view text) { return Parser(text).signature(); }
Constant parseConstant(std::string_view text) { return Parser(text).constant(); }
Type parseType(std::string_view text) { return Parser(text).completeType(); }

} // namespace host
