#include "repl/presentation.h"

#include "language/presentation.h"

#include "model/arrays.h"
#include "model/classes.h"
#include "model/variants.h"
#include "values/strings.h"

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace host::repl {
namespace {

// The maximum number of elements of an array or a list that are shown. The rest is counted.
constexpr HostInteger mostShown = 100;
constexpr HostInteger mostInArrays = 1000; // the maximum for all nested arrays together
constexpr std::size_t maxDepth = 20;

// Returns the text as a literal of the language. Control characters, which a literal cannot contain and the terminal must
// not get, become calls of Chr.
std::string literal(const std::string& text) {
    std::string result;
    bool quoted = false;
    const auto quote = [&](bool wanted) {
        if (quoted != wanted) result += wanted && !result.empty() ? " & \"" : "\"";
        quoted = wanted;
    };
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        const bool control = code < 0x20 || code == 0x7F;
        quote(!control);
        if (control) {
            result.append(result.empty() ? "" : " & ").append("Chr(" + std::to_string(code) + ")");
        } else {
            result.append(c == '"' ? 2 : 1, c);
        }
    }
    quote(false);
    return result.empty() ? "\"\"" : result;
}

std::string counted(HostInteger count) { return std::to_string(count) + (count == 1 ? " element" : " elements"); }

class Writer {
public:
    Writer(std::ostream& output, ColorDepth depth) : output_(output), depth_(depth) {}

    void write(const Type& type, Slot value) {
        if (type.is(Kind::variant)) return writeVariant(value.object);
        if (type.isArray) return writeArray(asArray(value.object));
        if (type.is(Kind::color)) output_ << swatch(value.color, depth_);
        if (type.is(Kind::object) && value.object) return writeObject(value.object);
        output_ << (type.is(Kind::string) ? literal(utf8Of(value.string)) : language::textOf(type, value));
    }

private:
    // Writes a line for each element of a colour list or each pair of a Dictionary, unless the object is inside another
    // value.
    void writeObject(Object* object) {
        output_ << swatch(object, depth_) << language::textOf(object);
        if (inside_) return;
        inside_ = true;
        if (object->info->isBuiltIn() && object->info->name() == "Dictionary") return writePairs(object);
        const std::vector<ListedColor> colors = colorsOfList(object);
        if (colors.empty()) return;
        const auto count = static_cast<HostInteger>(colors.size());
        output_ << " with " << counted(count);
        for (HostInteger i = 0; i < std::min(count, mostShown); ++i) {
            const auto& [key, color] = colors[static_cast<std::size_t>(i)];
            output_ << "\n  " << literal(key) << "  ";
            if (color) writeObject(color.get());
        }
        writeRest(count - mostShown, "\n  ");
    }

    void writePairs(Object* dictionary) {
        const Owned<Object> keys = listed(dictionary, "Keys"), values = listed(dictionary, "Values");
        const HostInteger count = HostInteger{upperBound(asArray(keys.get()))} + 1;
        output_ << " with " << counted(count);
        for (HostInteger i = 0; i < std::min(count, mostShown); ++i) {
            output_ << "\n  ";
            writeVariant(elementAt(asArray(keys.get()), i).object);
            output_ << "  ";
            writeVariant(elementAt(asArray(values.get()), i).object);
        }
        writeRest(count - mostShown, "\n  ");
    }

    static Owned<Object> listed(Object* dictionary, const char* member) {
        const Method& method = *dictionary->info->findMethods(member).front();
        const Slot receiver = Slot::ofObject(dictionary);
        Slot array;
        method.invoke(method.function, &receiver, &array);
        return Owned<Object>(array.object);
    }

    void writeVariant(Object* variant) {
        const Type held = typeInVariant(variant);
        Slot value;
        if (readVariant(variant, held, value)) write(held, value);
    }

    // Writes an array. An array inside itself, or one that is nested too deeply, becomes (...).
    void writeArray(const Array* array) {
        if (!array) {
            output_ << "Nil";
            return;
        }
        if (around_.size() == maxDepth || std::find(around_.begin(), around_.end(), array) != around_.end()) {
            output_ << "(...)";
            return;
        }
        around_.push_back(array);
        const Type& type = elementType(array);
        const HostInteger count = HostInteger{upperBound(array)} + 1;
        inside_ = true;
        const bool lines = count > 0 && (type.kind == Kind::object || type.kind == Kind::color);
        if (lines) output_ << nameOf(type.arrayOf()) << " with " << counted(count);
        if (!lines) output_ << '(';
        HostInteger i = 0;
        for (; i < std::min(count, mostShown) && left_ > 0; ++i, --left_) {
            output_ << (lines ? "\n  " + std::to_string(i) + "  " : i == 0 ? "" : ", ");
            write(type, elementAt(array, i));
        }
        writeRest(count - i, lines ? "\n  " : i == 0 ? "" : ", ");
        if (!lines) output_ << ')';
        around_.pop_back();
    }

    void writeRest(HostInteger count, const char* separator) {
        if (count > 0) output_ << separator << "and " << counted(count) << " more";
    }

    std::ostream& output_;
    const ColorDepth depth_;
    bool inside_ = false;
    std::vector<const Array*> around_; // the arrays that are being written
    HostInteger left_ = mostInArrays;
};

} // namespace

void ValuePresenter::present(const Type& type, Slot value) {
    Writer(output_, depth_).write(type, value);
    output_ << '\n';
}

} // namespace host::repl
