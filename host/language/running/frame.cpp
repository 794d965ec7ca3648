#include "language/running/frame.h"

#include "language/library/process.h"
#include "language/running/run.h"

namespace host::language {

Counting countingOf(const Type& type) {
    if (type.isObjectReference()) return Counting::object;
    return type.kind == Kind::string ? Counting::string : Counting::none;
}

void throwPending(Offset offset) {
    Owned<Object> exception(takePendingException());
    checkInterrupt(offset); // an interruption may have ended a read
    if (const std::optional<int> code = process::takeWantedEnd()) throw Quit{*code};
    throw Raised(std::move(exception), offset);
}

void throwNew(Offset offset, std::string_view className, std::string_view message) {
    raise(className, message);
    throwPending(offset);
}

void failMemory(Offset offset) { throwNew(offset, "OutOfMemoryException", "There is not enough memory for this."); }

void requireTextSize(std::size_t bytes, Offset offset) {
    if (bytes > maxTextBytes) throwNew(offset, "OutOfMemoryException", "A text cannot have more than 256 MB.");
}

void Frame::release(Mark mark) {
    while (execution_.objects.size() > mark.objects) {
        Object* const object = execution_.objects.back();
        execution_.objects.pop_back();
        unlock(object);
    }
    while (execution_.strings.size() > mark.strings) {
        String* const string = execution_.strings.back();
        execution_.strings.pop_back();
        unlock(string);
    }
}

} // namespace host::language
