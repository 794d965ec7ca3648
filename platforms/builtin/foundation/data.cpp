#include "foundation/data.h"

#include "foundation/files.h"
#include "foundation/string.h"

#include <cstdint>
#include <string_view>

namespace chroma::builtin {

ClassObject Data::cls;

Data* data(const std::uint8_t* bytes, std::size_t count) {
    auto* const created = autorelease(make<Data>());
    if (bytes) created->bytes.assign(bytes, bytes + count);
    return created;
}

namespace {

const Message lengthMessage{"length"};

Data* emptyData(ClassObject*, SEL) { return data(nullptr, 0); }

Data* dataWithBytes(ClassObject*, SEL, const void* bytes, std::uintptr_t count) {
    return data(static_cast<const std::uint8_t*>(bytes), count);
}

// Returns nil if the file cannot be read.
Data* dataWithContentsOfFile(ClassObject*, SEL, id path) {
    String* const string = argument<String>(path, lengthMessage);
    const char* const name = string ? utf8Of(string) : nullptr;
    Data* const created = data(nullptr, 0);
    return name && readFile(name, created->bytes) ? created : nullptr;
}

// Returns null for empty data.
const void* bytes(Data* self, SEL) { return self->bytes.empty() ? nullptr : self->bytes.data(); }

std::uintptr_t length(Data* self, SEL) { return self->bytes.size(); }

BOOL isEqual(Data* self, SEL, id other) {
    return isKindOf(other, Data::cls) && self->bytes == static_cast<Data*>(other)->bytes;
}

std::uintptr_t hash(Data* self, SEL) {
    return std::hash<std::string_view>()({reinterpret_cast<const char*>(self->bytes.data()), self->bytes.size()});
}

} // namespace

ClassTable tableOfNSData() {
    static const MethodEntry methods[] = {
        method<bytes>("bytes"),
        method<length>("length"),
        method<isEqual>("isEqual:"),
        method<hash>("hash"),
    };
    static const MethodEntry classMethods[] = {
        method<emptyData>("data"),
        method<dataWithBytes>("dataWithBytes:length:"),
        method<dataWithContentsOfFile>("dataWithContentsOfFile:"),
    };
    return classTable<Data>("NSData", &NSObject::cls, methods, classMethods);
}

} // namespace chroma::builtin
