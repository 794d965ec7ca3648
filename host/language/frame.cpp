#include "language/frame.h"

namespace host::language {

Counting countingOf(const Type& type) {
    if (type.isObjectReference()) return Counting::object;
    return type.kind == Kind::String ? Counting::string : Counting::none;
}

void throwPending(Offset offset) { throw Raised(takePendingException(), offset); }

void throwNew(Offset offset, std::string_view className, std::string_view message) {
    raise(className, message);
    throwPending(offset);
}

void Frame::release(Mark mark) {
    while (objects_.size() > mark.objects) {
        Object* const object = objects_.back();
        objects_.pop_back();
        unlock(object);
    }
    while (strings_.size() > mark.strings) {
        String* const string = strings_.back();
        strings_.pop_back();
        unlock(string);
    }
}

} // namespace host::language
