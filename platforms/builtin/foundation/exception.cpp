#include "foundation/exception.h"

#include "builtin/constants.h"

#include <cstdio>

namespace chroma::builtin {

ClassObject Exception::cls;

namespace exceptionName {

String invalidArgument{"NSInvalidArgumentException"};
String malloc{"NSMallocException"};
String range{"NSRangeException"};

} // namespace exceptionName

String* Exception::reasonText() {
    if (reason || !buildReason) return reason.get();
    return builtReason.get([this] { return retain(buildReason(subject.get(), selector)); });
}

void raise(String& name, String* reason) {
    auto* const exception = make<Exception>();
    exception->name = &name;
    exception->reason = reason;
    throwObject(autorelease(exception));
}

void raiseMemoryExhausted() {
    static String reason{"memory is exhausted"};
    static Exception exception{exceptionName::malloc, reason};
    throwObject(&exception);
}

void reportUncaught(id thrown) {
    if (isKindOf(thrown, Exception::cls)) {
        auto* const exception = static_cast<Exception*>(thrown);
        std::fprintf(stderr, "*** Terminating app due to uncaught exception '%s', reason: '%s'\n",
                     printable(exception->name.get()), printable(exception->reasonText()));
    } else {
        std::fprintf(stderr, "*** Terminating app due to uncaught exception of class '%s'\n", object_getClassName(thrown));
    }
}

namespace {

const Message lengthMessage{"length"};

Exception* initWithName(Exception* self, SEL, id name, id reason, id userInfo) {
    self->name = argument<String>(name, lengthMessage);
    self->reason = argument<String>(reason, lengthMessage);
    self->userInfo = userInfo;
    return self;
}

id exceptionWithName(ClassObject* self, SEL, id name, id reason, id userInfo) {
    static const Message initWithNameMessage{"initWithName:reason:userInfo:"};
    return autorelease(send<id>(allocate(*self), initWithNameMessage, name, reason, userInfo));
}

String* name(Exception* self, SEL) { return self->name.get(); }

String* reason(Exception* self, SEL) { return self->reasonText(); }

id userInfo(Exception* self, SEL) { return self->userInfo.get(); }

String* description(Exception* self, SEL) {
    String* const reason = self->reasonText();
    return reason ? reason : self->name.get();
}

void raiseException(Exception* self, SEL) { throwObject(self); }

} // namespace

ClassTable tableOfNSException() {
    static const MethodEntry methods[] = {
        initialiser<initWithName>("initWithName:reason:userInfo:"),
        method<name>("name"),
        method<reason>("reason"),
        method<userInfo>("userInfo"),
        method<description>("description"),
        method<raiseException>("raise"),
    };
    static const MethodEntry classMethods[] = {
        method<exceptionWithName>("exceptionWithName:reason:userInfo:"),
    };
    return classTable<Exception>("NSException", &NSObject::cls, methods, classMethods);
}

} // namespace chroma::builtin

namespace chroma {

const id NSInvalidArgumentException = &builtin::exceptionName::invalidArgument;
const id NSRangeException = &builtin::exceptionName::range;

} // namespace chroma
