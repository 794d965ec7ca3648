/*
 * The contract between a host and a plugin of this family: what crosses the boundary, in which shape, and who owns it.
 * Plain C, so that a host in any language can read it. Nothing here is shared code; both sides compile it on their own.
 *
 * Loading. The host opens the library, looks up `REALPluginMain` and calls it once with its resolver. The plugin registers
 * its class records during that call; afterwards it runs only when the host calls a function named in a record. Once a call
 * has brought a resolver, the plugin ignores further calls, whatever resolver they bring.
 *
 * Threads. Every call, in both directions, is made on the host's one calling thread.
 *
 * Text. Names and declarations are NUL-terminated ASCII and live as long as the library. Host strings carry an encoding, a
 * CFStringEncoding value. Names of host types are the same in upper and lower case.
 *
 * References. A host object, string, array or memory block that an entry creates or returns carries one reference that its
 * receiver owns: it gives it up with REALUnlockObject or REALUnlockString, or hands it out as its own result. Arguments are
 * borrowed for the length of the call.
 *
 * Exceptions. RuntimeRaiseException records the exception and returns. The plugin function goes on to return its null
 * result, and the host raises the recorded exception in host code then. A host creates these classes by name, or at least
 * "RuntimeException", which stands in for those it lacks: "OutOfBoundsException", "OutOfMemoryException",
 * "NilObjectException", "IllegalCastException", "UnsupportedOperationException". A plugin sets their properties "Message"
 * (a string) and "ErrorNumber" (32 bits). Entries do not throw. Two things alone pass outward through a plugin's function,
 * with all given up that it held: a thrown native object that is no NSException, and an exception that the host itself
 * threw out of an entry. A C++ one that ends the building of a string, or std::bad_alloc the making of a block, becomes a
 * host exception; so does an NSException, but where no guard stands round the entry, as round the making of an array and
 * some raising of exceptions.
 *
 * Siblings. Plugins of this family in one process share a registry of live host objects and one way to tell of NSExceptions.
 * One of them, the sibling, adds three class messages to NSException; where nobody answers them, objects have no identity
 * and NSExceptions become "RuntimeException"s:
 *   GetInstancesDictionaryZRX: a CFMutableDictionary of plain pointers, which lives on: native objects to the host objects
 *     that hold them, without a reference to either. Who enters a pair removes it before that host object ends.
 *   PrepareNSExceptionZRX: nothing; asked once, before the first NewNSExceptionZRX:.
 *   NewNSExceptionZRX: takes the NSException, answers a new host exception that the caller owns, or null for none.
 * The registry and PrepareNSExceptionZRX are asked for once, at a plugin's first object or shared method: a sibling comes
 * before.
 */
#ifndef CHROMABRIDGE_HOST_ABI_H
#define CHROMABRIDGE_HOST_ABI_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Versions */

/* Host versions at which plugins change what they use. A host reports its version through REALGetRBVersion. */
#define REAL_SINCE_ENCODED_STRINGS 2012.0 /* REALBuildStringWithEncoding */
#define REAL_SINCE_NATIVE_PATHS 2013.0    /* the property NativePath of folder items; UTF-32 text; renamed entry points */
#define REAL_SINCE_HIDDEN_STORAGE 2017.0  /* memoryBlockGetPtr and memoryBlockGetSize; storage no longer shows at offsets */

/* Control versions. The control version selects the layout of the class records. */
enum { REALcontrolVersionLegacy = 9, REALcontrolVersionCurrent = 13 };

/* The control version for each host version, as X(host version, control version), newest first. The first row with a host
 * version that is not greater than the host's applies. Without such a row, REALcontrolVersionLegacy applies. */
#define REAL_CONTROL_VERSIONS(X)                                                                                            \
    X(2013.04, 13)                                                                                                          \
    X(2013.03, 12)                                                                                                          \
    X(2013.0, 11)                                                                                                           \
    X(2012.0, 10)

/* ---- Values */

/* Host values are opaque. A null object is Nil, a null string the empty string. */
typedef struct REALobjectStruct REALobjectStruct;
typedef struct REALstringStruct REALstringStruct;
typedef struct REALmemoryBlockStruct REALmemoryBlockStruct; /* also an object: lock and unlock it as one */
typedef struct REALfolderItemStruct REALfolderItemStruct;   /* also an object */
typedef struct _REALarrayDouble REALarrayDouble;            /* a one-dimensional array of doubles; also an object */

/* The host types "integer" and "Integer": as wide as a pointer, so that handles carry whole pointers. Array indexes, bounds,
 * byte counts and the control version stay 32 bits wide in every build. */
typedef intptr_t HostInteger;

/* The host type "color": red in bits 16 to 23, green in 8 to 15, blue in 0 to 7, a fourth byte in 24 to 31. */
typedef uint32_t HostColor;

/* The host type "boolean": one byte, 0 or 1. */
typedef uint8_t HostBoolean;

/* Encodings of strings: CFStringEncoding values. UTF-16 and UTF-32 are in the machine's byte order. Other CFStringEncoding
 * values are allowed. Text of unknown encoding is read as Mac Roman. */
enum {
    REALencodingMacRoman = 0x00000000,
    REALencodingUTF16 = 0x00000100,
    REALencodingLatin1 = 0x00000201,
    REALencodingWindowsLatin1 = 0x00000500,
    REALencodingASCII = 0x00000600,
    REALencodingUnknown = 0x0000FFFF,
    REALencodingUTF8 = 0x08000100,
    REALencodingUTF32 = 0x0C000100
};

/* Byte offsets into host values, the same in every width; what lies there may be unaligned, so read it with memcpy. */
enum {
    /* Any object of a plugin class, or of a host class that descends from one: the plugin's instance data, zero-filled
     * before the class constructor runs. What descendants add lies behind it. */
    REALinstanceDataOffset = 24,
    /* A string: a pointer to its buffer, whose text starts at the buffer's second byte; the text's length in bytes, 32 bits.
     * Valid between REALLockString and REALUnlockString. */
    REALstringBufferOffset = 4,
    REALstringLengthOffset = 12,
    /* A memory block, on hosts older than 2017.0: its size in bytes (signed, 32 bits) and a pointer to its bytes. */
    REALmemoryBlockSizeOffset = 24,
    REALmemoryBlockBytesOffset = 28,
    /* A double array, on hosts older than 2017.0: a pointer to its elements, or null when they must be asked for one by one.
     */
    REALarrayElementsOffset = 28
};

/* ---- Class records, current layout (control versions 10 to 13) */

/* A number or flag set in a record takes one slot, as wide as a pointer: 32 bits in the 32-bit reference layout. A null
 * array goes with a count of 0. Every record and all it points at stay readable for the life of the process. */
typedef intptr_t REALword;

/* The flags of a record, by its kind. Plugins write these values. Their bits have no documented meaning, and a host may
 * ignore them. */
enum { REALclassFlags = 4, REALpropertyFlags = 6, REALmethodFlags = 4, REALconstantFlags = 0 };

/* A function in a record; its real type follows from the declared signature:
 *   constructor, destructor, methods and getters take the object first; shared methods take no object;
 *   then the parameters in order: "integer" HostInteger, "double" double, "byref ... as double" double*, "string"
 *   REALstringStruct*, "color" HostColor, "boolean" HostBoolean, "Memoryblock" REALmemoryBlockStruct*, "Folderitem"
 *   REALfolderItemStruct*, a class name or "variant" REALobjectStruct*, "x() as double" and "paramarray x as double"
 *   REALarrayDouble*. A getter takes the object and the record's parameter word. The result has the same mapping;
 *   "double()" is a REALarrayDouble*, an array of a class ("NSColorSpaceZRX()") a void* to an array of objects. Every
 *   parameter is passed: where host code leaves one out, the host fills in the declared default. */
typedef void* REALfunction;

/* In place of a getter or setter: the host itself reads or writes the instance data word at byte offset `parameter`. */
#ifdef __cplusplus
#define REALstandardAccessor (reinterpret_cast<REALfunction>(static_cast<intptr_t>(-1)))
#else
#define REALstandardAccessor ((REALfunction)(intptr_t)-1)
#endif

typedef struct REALproperty {
    const char* group; /* null */
    const char* name;
    const char* type; /* host type name: "Integer", "double", "string", "Color" */
    REALword flags;
    REALfunction getter; /* (REALobjectStruct*, REALword parameter) -> value, or REALstandardAccessor */
    REALfunction setter; /* null for a read-only property, or REALstandardAccessor */
    REALword parameter;
    REALword further[5]; /* 0 */
} REALproperty;

typedef struct REALmethodDefinition {
    REALfunction function;
    REALfunction setter;     /* null */
    const char* declaration; /* "colorWithKey(key as string) as NSColorZRX" */
    REALword flags;
    REALword further[2]; /* 0 */
} REALmethodDefinition;

typedef struct REALconstant {
    const char* declaration; /* "NSGrayColorSpaceModel=0"; text stands in double quotes */
    REALword value;          /* 0: the value is in the declaration */
    REALword flags;
    REALword further[2]; /* 0 */
} REALconstant;

typedef struct REALevent {
    const char* declaration;
    REALword flags;
    REALword further[2];
} REALevent;

typedef struct REALclassDefinition {
    REALword version; /* the control version that this record is laid out for */
    const char* name;
    const char* superName;       /* null: none */
    REALword instanceDataSize;   /* bytes; a multiple of 16 when the host sees it */
    REALword instanceDataOffset; /* written by the host at registration */
    REALfunction constructor;    /* (REALobjectStruct*) -> nothing, called on every new object */
    REALfunction destructor;     /* (REALobjectStruct*) -> nothing, called when the last reference has gone */
    REALproperty* properties;
    REALword propertyCount;
    REALmethodDefinition* methods;
    REALword methodCount;
    REALevent* events;
    REALword eventCount;
    void* eventInstances;
    REALword eventInstanceCount;
    void* interfaces;
    void* bindings;
    REALword bindingCount;
    REALconstant* constants;
    REALword constantCount;
    REALword flags;
    REALproperty* sharedProperties;
    REALword sharedPropertyCount;
    REALmethodDefinition* sharedMethods;
    REALword sharedMethodCount;
    void* delegates;
    REALword delegateCount;
    void* enumerations;
    REALword enumerationCount;
} REALclassDefinition;

/* ---- Class records, legacy layout (control version 9) */

/* Each legacy record holds the leading words of its current form. A host tells the two apart by word 0 of the class record.
 */
typedef struct REALpropertyLegacy {
    const char* group;
    const char* name;
    const char* type;
    REALword flags;
    REALfunction getter;
    REALfunction setter;
    REALword parameter;
    REALword further[3];
} REALpropertyLegacy;

typedef struct REALmethodDefinitionLegacy {
    REALfunction function;
    REALfunction setter;
    const char* declaration;
    REALword flags;
} REALmethodDefinitionLegacy;

typedef struct REALconstantLegacy {
    const char* declaration;
    REALword value;
    REALword flags;
} REALconstantLegacy;

typedef struct REALeventLegacy {
    const char* declaration;
    REALword flags;
} REALeventLegacy;

typedef struct REALclassDefinitionLegacy {
    REALword version; /* 9 */
    const char* name;
    const char* superName;
    REALword instanceDataSize;
    REALword instanceDataOffset;
    REALfunction constructor;
    REALfunction destructor;
    REALpropertyLegacy* properties;
    REALword propertyCount;
    REALmethodDefinitionLegacy* methods;
    REALword methodCount;
    REALeventLegacy* events;
    REALword eventCount;
    void* eventInstances;
    REALword eventInstanceCount;
    void* interfaces;
    void* bindings;        /* null */
    REALword bindingCount; /* 0 */
    REALconstantLegacy* constants;
    REALword constantCount;
    REALword flags;
    REALpropertyLegacy* sharedProperties;
    REALword sharedPropertyCount;
    REALmethodDefinitionLegacy* sharedMethods;
    REALword sharedMethodCount;
} REALclassDefinitionLegacy;

/* ---- Entry points */

/* The host's resolver: the address of the named entry, or null when this host has none of that name. A missing entry is
 * never an error: the plugin leaves the operation out. Names are spelled exactly as below. */
typedef void* (*REALresolver)(const char* entryName);

/* The plugin's one export. A null resolver is allowed: nothing is registered. */
typedef void (*REALPluginMainProc)(REALresolver resolver);

/* Element type codes of arrays. */
enum { REALarrayOfDoubles = 2, REALarrayOfObjects = 4 };

/* "REALGetRBVersion": the host's version, such as 2013.04. Asked once, during REALPluginMain. A host without it counts as
 * version 0.0: it gets legacy records, and its values are read at their offsets. */
typedef double (*REALGetRBVersionProc)(void);

/* "RegisterPluginVersion": announces the control version, 9 to 13, before the first class is registered. */
typedef void (*RegisterPluginVersionProc)(int32_t controlVersion);

/* "PluginRegisterClass": the host keeps the record and writes its instanceDataOffset. */
typedef void (*PluginRegisterClassProc)(REALclassDefinition* record);

/* "PluginNewInstance": a new object, its class constructor run; null when no class has that name. */
typedef REALobjectStruct* (*PluginNewInstanceProc)(const char* className);

/* "ChromaObjectIsA", on hosts that can tell: whether the object is of the named class or of one that descends from it. */
typedef HostBoolean (*ChromaObjectIsAProc)(REALobjectStruct* object, const char* className);

/* "REALLockObject", "REALUnlockObject": one reference more, one fewer. "REALLockString", "REALUnlockString" likewise. */
typedef void (*REALLockObjectProc)(REALobjectStruct* object);
typedef void (*REALUnlockObjectProc)(REALobjectStruct* object);
typedef void (*REALLockStringProc)(REALstringStruct* string);
typedef void (*REALUnlockStringProc)(REALstringStruct* string);

/* "RuntimeRaiseException": records the exception (the host takes its own reference) and returns. */
typedef void (*RuntimeRaiseExceptionProc)(REALobjectStruct* exception);

/* "REALSetPropValueString", "REALSetPropValueInteger" (older name "REALSetPropValueInt"): set a property by name. */
typedef void (*REALSetPropValueStringProc)(REALobjectStruct* object, const char* property, REALstringStruct* value);
typedef void (*REALSetPropValueIntegerProc)(REALobjectStruct* object, const char* property, int32_t value);

/* "REALGetPropValueString": 1 when the property exists; *value then is a string that the caller owns. Of a folder item,
 * "NativePath" is asked for, its path, or of hosts older than 2013.0 "URLPath", its address as a file URL. */
typedef HostBoolean (*REALGetPropValueStringProc)(REALobjectStruct* object, const char* property, REALstringStruct** value);

/* "REALBuildString": a string of `length` bytes, encoding unknown; null on failure. The bytes are copied. */
typedef REALstringStruct* (*REALBuildStringProc)(const void* bytes, int32_t length);

/* "REALBuildStringWithEncoding" (2012.0 and later): the same, with the encoding of the bytes recorded. */
typedef REALstringStruct* (*REALBuildStringWithEncodingProc)(const void* bytes, int32_t length, uint32_t encoding);

/* "REALGetStringEncoding", "REALSetStringEncoding": the recorded encoding; setting it converts no bytes. */
typedef uint32_t (*REALGetStringEncodingProc)(REALstringStruct* string);
typedef void (*REALSetStringEncodingProc)(REALstringStruct* string, uint32_t encoding);

/* "REALConvertString": a new string with the same text in another encoding; a null string gives null. */
typedef REALstringStruct* (*REALConvertStringProc)(REALstringStruct* string, uint32_t encoding);

/* "REALGetStringCFString": the text as a CFString that the caller releases, or null. `reserved` is 0. Without it, where it
 * answers null, and always where the recorded encoding is unknown, a string's bytes are read at their offsets, whatever the
 * version; those of unknown encoding as Mac Roman. */
typedef const void* (*REALGetStringCFStringProc)(REALstringStruct* string, int32_t reserved);

/* "RuntimeArrayCreateSingleDimBoundedArray": a new array with indexes 0 to upperBound; -1 makes it empty. */
typedef void* (*RuntimeArrayCreateProc)(int32_t elementType, int32_t upperBound);

/* "RuntimeUBound": the upper bound, -1 for an empty array. */
typedef int32_t (*RuntimeUBoundProc)(void* array);

/* "PluginDoubleArrayInsertProc", "PluginObjectArrayInsertProc", "PluginDoubleArrayGetProc" answer the procedure that serves
 * the given array, or null. Older names of the getters: "RuntimeArrayDirectGetInsertProc", "RuntimeArrayDirectGetGetProc".
 * Inserting at the first index past the end grows the array; an object array keeps its own reference to each element. */
typedef void (*REALarrayInsertDoubleProc)(void* array, int32_t index, double value);
typedef void (*REALarrayInsertObjectProc)(void* array, int32_t index, REALobjectStruct* value);
typedef double (*REALarrayGetDoubleProc)(void* array, int32_t index);
typedef REALarrayInsertDoubleProc (*PluginDoubleArrayInsertProc)(void* array);
typedef REALarrayInsertObjectProc (*PluginObjectArrayInsertProc)(void* array);
typedef REALarrayGetDoubleProc (*PluginDoubleArrayGetProc)(void* array);
typedef void* (*RuntimeArrayDirectGetInsertProc)(void* array); /* the insert procedure of either kind of array */

/* "newMemoryBlock": a zero-filled block of `size` bytes, or null. */
typedef REALmemoryBlockStruct* (*NewMemoryBlockProc)(int32_t size);

/* "memoryBlockGetPtr", "memoryBlockGetSize" (2017.0 and later): the block's bytes and size in bytes. */
typedef void* (*MemoryBlockGetPtrProc)(REALmemoryBlockStruct* block);
typedef int32_t (*MemoryBlockGetSizeProc)(REALmemoryBlockStruct* block);

/* Every entry point, as X(name, type, host version that introduced it). */
#define REAL_ENTRY_POINTS(X)                                                                                                \
    X(REALGetRBVersion, REALGetRBVersionProc, 0.0)                                                                          \
    X(RegisterPluginVersion, RegisterPluginVersionProc, 0.0)                                                                \
    X(PluginRegisterClass, PluginRegisterClassProc, 0.0)                                                                    \
    X(PluginNewInstance, PluginNewInstanceProc, 0.0)                                                                        \
    X(ChromaObjectIsA, ChromaObjectIsAProc, 0.0)                                                                            \
    X(REALLockObject, REALLockObjectProc, 0.0)                                                                              \
    X(REALUnlockObject, REALUnlockObjectProc, 0.0)                                                                          \
    X(REALLockString, REALLockStringProc, 0.0)                                                                              \
    X(REALUnlockString, REALUnlockStringProc, 0.0)                                                                          \
    X(RuntimeRaiseException, RuntimeRaiseExceptionProc, 0.0)                                                                \
    X(REALSetPropValueString, REALSetPropValueStringProc, 0.0)                                                              \
    X(REALSetPropValueInteger, REALSetPropValueIntegerProc, REAL_SINCE_NATIVE_PATHS)                                        \
    X(REALSetPropValueInt, REALSetPropValueIntegerProc, 0.0)                                                                \
    X(REALGetPropValueString, REALGetPropValueStringProc, 0.0)                                                              \
    X(REALBuildString, REALBuildStringProc, 0.0)                                                                            \
    X(REALBuildStringWithEncoding, REALBuildStringWithEncodingProc, REAL_SINCE_ENCODED_STRINGS)                             \
    X(REALGetStringEncoding, REALGetStringEncodingProc, 0.0)                                                                \
    X(REALSetStringEncoding, REALSetStringEncodingProc, 0.0)                                                                \
    X(REALConvertString, REALConvertStringProc, 0.0)                                                                        \
    X(REALGetStringCFString, REALGetStringCFStringProc, 0.0)                                                                \
    X(RuntimeArrayCreateSingleDimBoundedArray, RuntimeArrayCreateProc, 0.0)                                                 \
    X(RuntimeUBound, RuntimeUBoundProc, 0.0)                                                                                \
    X(PluginDoubleArrayInsertProc, PluginDoubleArrayInsertProc, REAL_SINCE_NATIVE_PATHS)                                    \
    X(PluginObjectArrayInsertProc, PluginObjectArrayInsertProc, REAL_SINCE_NATIVE_PATHS)                                    \
    X(PluginDoubleArrayGetProc, PluginDoubleArrayGetProc, REAL_SINCE_NATIVE_PATHS)                                          \
    X(RuntimeArrayDirectGetInsertProc, RuntimeArrayDirectGetInsertProc, 0.0)                                                \
    X(RuntimeArrayDirectGetGetProc, PluginDoubleArrayGetProc, 0.0)                                                          \
    X(newMemoryBlock, NewMemoryBlockProc, 0.0)                                                                              \
    X(memoryBlockGetPtr, MemoryBlockGetPtrProc, REAL_SINCE_HIDDEN_STORAGE)                                                  \
    X(memoryBlockGetSize, MemoryBlockGetSizeProc, REAL_SINCE_HIDDEN_STORAGE)

#ifdef __cplusplus
}
#endif

#endif
