#include "runtime/unrecognized.h"

#include "runtime/message.h"

namespace chroma::builtin {
namespace {

id doesNotRecognize(id receiver, SEL selector) {
    send<void>(receiver, msg::doesNotRecognizeSelector, selector);
    return nullptr;
}

} // namespace

IMP unrecognizedMessage() { return reinterpret_cast<IMP>(doesNotRecognize); }

} // namespace chroma::builtin
