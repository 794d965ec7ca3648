#include "language/running/places.h"

#include "language/running/escaped.h"

#include "text/characters.h"

#include <algorithm>
#include <new>

namespace host::language {
namespace {

// Returns the expression before the member's name at the offset; empty if it is long, on another line, or not written.
std::string_view ownerOf(std::string_view text, std::size_t member) {
    constexpr std::size_t maxShown = 60;
    const auto skipBlanks = [&](std::size_t end) {
        while (end > 0 && isBlank(text[end - 1]))
            --end;
        return end;
    };
    const std::size_t dot = skipBlanks(member);
    if (dot == 0 || text[dot - 1] != '.') return {};
    const std::size_t end = skipBlanks(dot - 1);
    std::size_t start = end;
    for (int open = 0; start > 0; --start) {
        const char c = text[start - 1];
        if (isLineEnd(c)) break;
        if (c == ')') ++open;
        if (c == '(' && open-- == 0) break;
        if (c == '"' && start > 1) start = std::min(text.rfind('"', start - 2), start - 2) + 1;
        if (open == 0 && c != '(' && c != '.' && c != '"' && !isNamePart(c)) break;
    }
    return end - start <= maxShown ? text.substr(start, end - start) : std::string_view();
}

} // namespace

void failNil(Frame& frame, Offset offset) {
    const Source* const source = frame.execution().source;
    const std::string owner(source ? ownerOf(source->text(), offset) : std::string_view());
    throwNew(offset, "NilObjectException", "A member of Nil was used" + (owner.empty() ? "." : ": '" + owner + "' is Nil."));
}
void store(Frame& frame, VariablePlace place, Counting counting, Slot value) {
    lock(counting, value);
    unlock(counting, std::exchange(frame.variable(place), value)); // last: a destructor may run
}

CodePtr readVariable(VariablePlace place, const Type& type) {
    const Counting counting = countingOf(type);
    if (counting == Counting::none) return makeCode([place](Frame& frame) { return frame.variable(place); });
    // The frame keeps a reference, because a later assignment to the variable in the same step must not release the value.
    return makeCode([place, counting](Frame& frame) {
        const Slot value = frame.variable(place);
        lock(counting, value);
        return frame.keep(counting, value);
    });
}

CodePtr addressOfVariable(VariablePlace place) {
    return makeCode([place](Frame& frame) { return Slot::ofAddress(&frame.variable(place)); });
}

CodePtr readProperty(const Property& property, CodePtr object, Offset offset) {
    const Counting counting = countingOf(property.type);
    return makeCode([&property, object = std::move(object), counting, offset](Frame& frame) {
        Object* const owner = requireObject(frame, object->evaluate(frame).object, offset);
        const Slot read =
            callMember(property.owner, property.name, offset, [&] { return host::readProperty(property, owner); });
        const Slot value = frame.keep(counting, read);
        checkPending(offset);
        return value;
    });
}

ActionPtr writeVariable(VariablePlace place, const Type& type, CodePtr value) {
    const Counting counting = countingOf(type);
    if (counting == Counting::none) {
        return makeAction(
            [place, value = std::move(value)](Frame& frame) { frame.variable(place) = value->evaluate(frame); });
    }
    return makeAction([place, counting, value = std::move(value)](Frame& frame) {
        store(frame, place, counting, value->evaluate(frame));
    });
}

namespace {

// Replaces the text of a variable. Meanwhile the variable has no reference to the text, so that the text can change in
// place. `change` replaces the text that it receives, and may throw.
template <class Change>
void changeText(Slot& variable, Owned<String> text, Offset offset, Change change) {
    if (variable.string == text.get()) unlock(std::exchange(variable.string, nullptr));
    bool failed = false;
    try {
        change(text);
    } catch (const std::bad_alloc&) {
        failed = true;
    }
    unlock(std::exchange(variable.string, text.release()));
    if (failed) failMemory(offset);
}

void replace(Owned<String>& text, String* next) {
    text.release();
    text = Owned<String>(next);
}

} // namespace

// The variable is read before the texts, because evaluating a text may change it.
ActionPtr appendToVariable(VariablePlace place, std::vector<CodePtr> texts, Offset offset) {
    return makeAction([place, texts = std::move(texts), offset](Frame& frame) {
        Owned<String> text = Owned<String>::shared(frame.variable(place).string);
        std::vector<String*> parts;
        std::size_t size = bytesOf(text.get()).size();
        for (const CodePtr& part : texts) {
            parts.push_back(part->evaluate(frame).string);
            size += bytesOf(parts.back()).size();
        }
        requireTextSize(size, offset);
        changeText(frame.variable(place), std::move(text), offset, [&](Owned<String>& changed) {
            for (const String* const part : parts)
                replace(changed, append(changed.get(), part));
        });
    });
}

ActionPtr prependToVariable(VariablePlace place, CodePtr text, Offset offset) {
    return makeAction([place, text = std::move(text), offset](Frame& frame) {
        const String* const front = text->evaluate(frame).string;
        Owned<String> before = Owned<String>::shared(frame.variable(place).string);
        requireTextSize(bytesOf(before.get()).size() + bytesOf(front).size(), offset);
        changeText(frame.variable(place), std::move(before), offset,
                   [&](Owned<String>& changed) { replace(changed, prepend(changed.get(), front)); });
    });
}

ActionPtr cutVariable(VariablePlace place, text::Part (*part)(HostInteger, HostInteger, HostInteger), CodePtr a, CodePtr b,
                      Offset offset) {
    return makeAction([place, part, a = std::move(a), b = std::move(b), offset](Frame& frame) {
        Owned<String> text = Owned<String>::shared(frame.variable(place).string);
        const Frame::Mark mark = frame.mark();
        const HostInteger first = a->evaluate(frame).integer, second = b->evaluate(frame).integer;
        frame.release(mark); // the numbers may have been computed from the text
        changeText(frame.variable(place), std::move(text), offset, [&](Owned<String>& changed) {
            const text::Part kept = part(text::length(changed.get()), first, second);
            replace(changed, slice(changed.get(), kept.first, kept.count));
        });
    });
}

ActionPtr writeProperty(const Property& property, CodePtr object, CodePtr value, Offset offset) {
    return makeAction([&property, object = std::move(object), value = std::move(value), offset](Frame& frame) {
        Object* const owner = requireObject(frame, object->evaluate(frame).object, offset);
        const Slot written = value->evaluate(frame);
        callMember(property.owner, property.name, offset, [&] { host::writeProperty(property, owner, written); });
        checkPending(offset);
    });
}

} // namespace host::language
