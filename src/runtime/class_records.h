// The rows of the static class tables, and the registration of a class record with the host.
//
// The tables are constant-initialised in the current layout. Registration changes a record permanently: it rounds the
// instance data size, sets the control version and, for control version 9, rewrites the record and its arrays in the legacy
// layout.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma {

// One pointer, the native object.
constexpr REALword kInstanceDataSize = sizeof(void*);

// These are macros, because a constant initialiser can cast a function's address only as an expression.
#define CHROMA_BOUND(function) reinterpret_cast<REALfunction>(&function)
#define CHROMA_PROPERTY(name, type)                                                                                         \
    {                                                                                                                       \
        nullptr, #name, type, REALpropertyFlags, CHROMA_BOUND(name), nullptr, 0, {}                                         \
    }
// The host itself reads and writes this property: the native object's pointer.
#define CHROMA_HANDLE_PROPERTY                                                                                              \
    {                                                                                                                       \
        nullptr, "Handle", "Integer", REALpropertyFlags, REALstandardAccessor, REALstandardAccessor, 0, {}                  \
    }
#define CHROMA_METHOD(function, declaration)                                                                                \
    {                                                                                                                       \
        CHROMA_BOUND(function), nullptr, declaration, REALmethodFlags, {}                                                   \
    }

// A class record. Each table is CHROMA_ROWS(array) or CHROMA_NO_ROWS.
#define CHROMA_ROWS(rows) rows, chroma::countOf(rows)
#define CHROMA_NO_ROWS nullptr, 0
#define CHROMA_CLASS(name, superName, constructor, destructor, properties, methods, constants, sharedMethods)               \
    {                                                                                                                       \
        REALcontrolVersionCurrent, name, superName, chroma::kInstanceDataSize, 0, CHROMA_BOUND(constructor),                \
            CHROMA_BOUND(destructor), properties, methods, /* events */ nullptr, 0, /* event instances */ nullptr, 0,       \
            /* interfaces */ nullptr, /* bindings */ nullptr, 0, constants, REALclassFlags,                                 \
            /* shared properties */ nullptr, 0, sharedMethods, /* delegates */ nullptr, 0, /* enumerations */ nullptr, 0    \
    }

template <class Row, REALword length>
constexpr REALword countOf(Row (&)[length]) {
    return length;
}

// Returns a new array of `count` legacy records with the leading words of the properties. Returns null if `properties` is
// null, if `count` is 0, and when memory is exhausted. The caller owns the array, and frees it with std::free.
REALpropertyLegacy* FixProperties(const REALproperty* properties, REALword count);

// Registers one class record, which the host keeps using. If memory is exhausted, the record is unchanged and is not
// registered.
void MyREALRegisterClass(REALclassDefinition* record);

} // namespace chroma
