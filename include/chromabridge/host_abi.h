/*
 * The binary interface between a host and its plugins.
 *
 * A host is a development environment, or an application built with it, that runs programs in a BASIC-like object language.
 * A plugin is a shared library that adds classes to that language. This header is plain C, so that hosts and plugins in any
 * language can follow it. It contains types, constants and lists. Host and plugin share no code.
 *
 * LIFE OF A PLUGIN
 *
 *   1. The host loads the library, looks up its one exported function, REALPluginMain, and calls it with a resolver.
 *   2. During that call the plugin uses the resolver to look up the entry points of the host by name. It reads the host's
 *      version (REALGetRBVersion), announces a control version (RegisterPluginVersion), and registers its class records
 *      (PluginRegisterClass).
 *   3. From then on the plugin runs only when the host calls a function of a class record. It may look up more entry points
 *      then, so the resolver stays valid.
 *   4. The library stays loaded until the process exits.
 *
 * RULES FOR BOTH SIDES
 *
 * Threads. The host makes all its calls on one thread. The plugin calls entry points only on that thread.
 *
 * Entry points. Every entry point is optional. Operations of a plugin that need a missing one do nothing, and a plugin
 * checks each address for null. Two entry points require others, because plugins stop using the older way at these versions:
 * from 2012.0 a host with REALBuildString also provides REALBuildStringWithEncoding, and from 2017.0 a host with
 * newMemoryBlock also provides memoryBlockGetPtr and memoryBlockGetSize.
 *
 * Names. Names and declarations are NUL-terminated ASCII and stay valid as long as the library is loaded. Names of entry
 * points are case-sensitive. Names of types, classes and members in the host language are not.
 *
 * References. Objects, strings, arrays and memory blocks are counted. A value that an entry point creates or returns carries
 * one reference, which belongs to the caller. The caller drops it with REALUnlockObject or REALUnlockString, or returns the
 * value as its own result. Arguments are borrowed: they stay valid during the call, and whoever keeps one longer locks it.
 *
 * Null. A null object is Nil, and a null string is the empty string. Any object or string argument of a plugin function may
 * be null. A plugin passes null to an entry point only where the description allows it. A host should ignore every other
 * null: locking and unlocking do nothing, and functions return null or 0.
 *
 * Exceptions. RuntimeRaiseException records an exception and returns. The plugin function then returns its null result
 * (null, 0, 0.0), and the host raises the recorded exception in host code: the first one if there are several. A host
 * creates these classes by name: "RuntimeException", "OutOfBoundsException", "OutOfMemoryException", "NilObjectException",
 * "IllegalCastException", "UnsupportedOperationException". A plugin uses "RuntimeException" where the host does not have one
 * of the others. It sets the properties "Message" (a string) and "ErrorNumber" (32 bits) of the new exception.
 *
 * C++ exceptions. Entry points do not throw, and a plugin may rely on this. The plugins of this family tolerate entry points
 * that throw: such an exception propagates out of the plugin function, which has released everything it held. Three kinds
 * become host exceptions instead: any C++ exception while a string is built, std::bad_alloc while a memory block is created,
 * and an NSException. The last is not caught while an array is created, nor during some calls that raise an exception. An
 * Objective-C object that is not an NSException propagates when the platform throws it, too.
 *
 * SIBLINGS
 *
 * The plugins of this family in one process share a registry of live host objects and one way to convert an NSException. One
 * of the plugins, the sibling, adds three class methods to NSException:
 *
 *   GetInstancesDictionaryZRX  Returns a CFMutableDictionary that lives as long as the process. Its keys are native objects,
 *                              its values the host objects that hold them, both plain pointers without a reference. Whoever
 *                              adds a pair must remove it before the host object is destroyed.
 *   PrepareNSExceptionZRX      Returns nothing. It is sent once, before the first NewNSExceptionZRX:.
 *   NewNSExceptionZRX:         Takes the NSException and returns a new host exception, which the caller owns, or null if
 *                              there is nothing to raise.
 *
 * A plugin sends the first two once, when its first object is created or its first shared method is called. The sibling must
 * be loaded by then. Without a sibling, equal native objects have different host objects, and an NSException becomes a
 * "RuntimeException".
 */
#ifndef CHROMABRIDGE_HOST_ABI_H
#define CHROMABRIDGE_HOST_ABI_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Versions */

/* Host versions at which plugins change what they use. */
#define REAL_SINCE_ENCODED_STRINGS 2012.0 /* REALBuildStringWithEncoding */
#define REAL_SINCE_NATIVE_PATHS 2013.0    /* the property NativePath of folder items, UTF-32, renamed entry points */
#define REAL_SINCE_HIDDEN_STORAGE 2017.0  /* storage of blocks and arrays is only available through entry points */

/* Control versions. The control version selects the layout of the class records: 9 is the legacy layout, 10 to 13 share the
 * current layout. */
enum { REALcontrolVersionLegacy = 9, REALcontrolVersionCurrent = 13 };

/* The control version of each host version, as X(host version, control version), newest first. The first row whose host
 * version is at most the host's applies. If there is none, the control version is REALcontrolVersionLegacy. */
#define REAL_CONTROL_VERSIONS(X)                                                                                            \
    X(2013.04, 13)                                                                                                          \
    X(2013.03, 12)                                                                                                          \
    X(2013.0, 11)                                                                                                           \
    X(2012.0, 10)

/* ---- Values */

/* Host values are opaque. Memory blocks, folder items and arrays are objects: lock and unlock them as objects. */
typedef struct REALobjectStruct REALobjectStruct;
typedef struct REALstringStruct REALstringStruct;
typedef struct REALmemoryBlockStruct REALmemoryBlockStruct;
typedef struct REALfolderItemStruct REALfolderItemStruct;
typedef struct _REALarrayDouble REALarrayDouble; /* a one-dimensional array of doubles */

/* The host type "integer". It is as wide as a pointer, so that it can carry a handle. Array indexes, bounds, byte counts and
 * the control version are 32 bits wide in every build. */
typedef intptr_t HostInteger;

/* The host type "color": red in bits 16 to 23, green in 8 to 15, blue in 0 to 7, a fourth byte in 24 to 31. */
typedef uint32_t HostColor;

/* The host type "boolean": 0 or 1. */
typedef uint8_t HostBoolean;

/* The encoding that a host records for each string: a CFStringEncoding value, of which these are in use. UTF-16 and UTF-32
 * are in the machine's byte order. Text of unknown encoding is read as Mac Roman. */
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

/* Byte offsets into host values. They are the same in 32 and 64 bits. A field may be unaligned, so read it with memcpy. */
enum {
    /* An object of a plugin class, or of a class derived from one: the plugin's instance data. It is zero-filled before the
     * constructor runs. The data of derived classes follows it. */
    REALinstanceDataOffset = 24,
    /* A string: a pointer to its buffer, whose second byte is the first byte of the text, and the length of the text in
     * bytes (32 bits). Both are valid between REALLockString and REALUnlockString. The text is in the recorded encoding. */
    REALstringBufferOffset = 4,
    REALstringLengthOffset = 12,
    /* A memory block, on hosts older than 2017.0: its size in bytes (signed, 32 bits) and a pointer to its bytes. */
    REALmemoryBlockSizeOffset = 24,
    REALmemoryBlockBytesOffset = 28,
    /* An array of doubles, on hosts older than 2017.0: a pointer to its elements, or null if they are only available one by
     * one through the get procedure. */
    REALarrayElementsOffset = 28
};

/* ---- Class records, current layout (control versions 10 to 13)
 *
 * A plugin describes each class by a record, which points to arrays of records of its members. A null array has the count 0.
 * Records and everything they point to stay readable until the process exits. */

/* A number or a set of flags in a record. It is as wide as a pointer: 32 bits in the 32-bit layout. */
typedef intptr_t REALword;

/* The flags of each kind of record. Plugins write exactly these values. A host may ignore them. */
enum { REALclassFlags = 4, REALpropertyFlags = 6, REALmethodFlags = 4, REALconstantFlags = 0 };

/* A function in a record. Its C type follows from its role and its declaration.
 *
 *   constructor, destructor    void (REALobjectStruct*)
 *   method                     result (REALobjectStruct*, parameters...)
 *   shared method              result (parameters...)
 *   getter                     result (REALobjectStruct*, REALword parameter)
 *   setter                     void (REALobjectStruct*, REALword parameter, value), the value borrowed
 *
 * Host types correspond to these C types:
 *
 *   integer                    HostInteger
 *   double                     double; double* for a parameter declared "byref x as double"
 *   string                     REALstringStruct*
 *   color, boolean             HostColor, HostBoolean
 *   Memoryblock, Folderitem    REALmemoryBlockStruct*, REALfolderItemStruct*
 *   a class, variant           REALobjectStruct*
 *   array of doubles           REALarrayDouble*: "x() as double", "paramarray x as double", the result "double()"
 *   array of a class           void*: the result "NSColorSpaceZRX()"
 *
 * The host passes every declared parameter. For one that host code omits it passes the declared default. */
typedef void* REALfunction;

/* Takes the place of a getter or setter. The host itself then reads or writes the property's value at byte offset
 * `parameter` of the instance data. */
#ifdef __cplusplus
#define REALstandardAccessor (reinterpret_cast<REALfunction>(static_cast<intptr_t>(-1)))
#else
#define REALstandardAccessor ((REALfunction)(intptr_t)-1)
#endif

typedef struct REALproperty {
    const char* group; /* null */
    const char* name;
    const char* type; /* "Integer", "double", "string", "Color" */
    REALword flags;
    REALfunction getter;
    REALfunction setter; /* null for a read-only property */
    REALword parameter;  /* the second argument of getter and setter, or the standard accessor's offset */
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
    const char* declaration; /* "NSGrayColorSpaceModel=0"; a string is in double quotes */
    REALword value;          /* 0: the value is in the declaration */
    REALword flags;
    REALword further[2]; /* 0 */
} REALconstant;

/* No plugin of this family has events, event instances, interfaces, bindings, shared properties, delegates or enumerations.
 * Their pointers are null and their counts 0 in every record. A host may ignore these fields. */
typedef struct REALevent {
    const char* declaration;
    REALword flags;
    REALword further[2];
} REALevent;

typedef struct REALclassDefinition {
    REALword version; /* the announced control version */
    const char* name;
    const char* superName;       /* null if there is none */
    REALword instanceDataSize;   /* bytes; a multiple of 16 when the host sees it */
    REALword instanceDataOffset; /* written by the host at registration */
    REALfunction constructor;    /* called for every new object; may be null */
    REALfunction destructor;     /* called when the last reference is dropped; may be null */
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

/* ---- Class records, legacy layout (control version 9)
 *
 * Each legacy record consists of the first words of the current record. A host distinguishes the layouts by the version, the
 * first word of the class record. */

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

/* ---- Start */

/* The host's resolver. Returns the address of the entry point with that name, or null if the host does not provide it. It
 * returns the same address for the same name. */
typedef void* (*REALresolver)(const char* entryName);

/* REALPluginMain, the function that a plugin exports. A null resolver is allowed: the plugin registers nothing. After a call
 * with a resolver the plugin ignores further calls, whatever resolver they pass. */
typedef void (*REALPluginMainProc)(REALresolver resolver);

/* Returns the host's version, such as 2013.04. A plugin calls it once, during REALPluginMain. Without this entry point the
 * version is 0.0: class records have the legacy layout, and the plugin reads values at their offsets. */
typedef double (*REALGetRBVersionProc)(void);

/* Announces the control version, 9 to 13. A plugin calls it once, before it registers the first class. */
typedef void (*RegisterPluginVersionProc)(int32_t controlVersion);

/* Registers a class. The host keeps the record, which stays the plugin's, and writes its instanceDataOffset. It changes
 * nothing else. A superclass must be registered first. */
typedef void (*PluginRegisterClassProc)(REALclassDefinition* record);

/* ---- Objects */

/* Creates an object and calls its class constructor. Returns null if there is no class with that name or no memory. */
typedef REALobjectStruct* (*PluginNewInstanceProc)(const char* className);

/* Returns 1 if the object is an instance of the class or of a class derived from it, else 0. An extension: most hosts do not
 * provide it. */
typedef HostBoolean (*ChromaObjectIsAProc)(REALobjectStruct* object, const char* className);

/* Adds or drops a reference. When the last one is dropped, the host calls the class destructor and destroys the object. */
typedef void (*REALLockObjectProc)(REALobjectStruct* object);
typedef void (*REALUnlockObjectProc)(REALobjectStruct* object);

/* Records an exception and returns. The host keeps a reference to the exception. See "Exceptions" above. */
typedef void (*RuntimeRaiseExceptionProc)(REALobjectStruct* exception);

/* Sets a property by its name. Nothing happens if the object has no property of that name and type. A null string sets the
 * empty string. Plugins set only "Message" and "ErrorNumber" of exceptions, so a host may support only these.
 * REALSetPropValueInt is the older name of REALSetPropValueInteger. */
typedef void (*REALSetPropValueStringProc)(REALobjectStruct* object, const char* property, REALstringStruct* value);
typedef void (*REALSetPropValueIntegerProc)(REALobjectStruct* object, const char* property, int32_t value);

/* Reads a string property by its name. Returns 1 and stores a string, which the caller owns; or returns 0 and stores nothing
 * if the object has no such property. Plugins read the property "NativePath" of a folder item, a path. On hosts older than
 * 2013.0 they read "URLPath" instead, a file URL. */
typedef HostBoolean (*REALGetPropValueStringProc)(REALobjectStruct* object, const char* property, REALstringStruct** value);

/* ---- Strings */

/* Creates a string from a copy of `length` bytes, which may contain zeros. The recorded encoding is REALencodingUnknown.
 * Returns null on failure. For length 0 the result may be null. */
typedef REALstringStruct* (*REALBuildStringProc)(const void* bytes, int32_t length);

/* Does the same and records the encoding. The bytes are not converted. */
typedef REALstringStruct* (*REALBuildStringWithEncodingProc)(const void* bytes, int32_t length, uint32_t encoding);

/* Adds or drops a reference. When the last one is dropped, the host destroys the string. */
typedef void (*REALLockStringProc)(REALstringStruct* string);
typedef void (*REALUnlockStringProc)(REALstringStruct* string);

/* Returns or sets the recorded encoding. Setting it does not convert the bytes. */
typedef uint32_t (*REALGetStringEncodingProc)(REALstringStruct* string);
typedef void (*REALSetStringEncodingProc)(REALstringStruct* string, uint32_t encoding);

/* Returns a new string with the same text in another encoding. The argument stays unchanged. Returns null for a null string
 * and for text that cannot be converted. Plugins convert only to UTF-8, so a host may return null for other encodings. */
typedef REALstringStruct* (*REALConvertStringProc)(REALstringStruct* string, uint32_t encoding);

/* Returns the text as a CFString, which the caller releases, or null. `reserved` is 0. Plugins read the bytes at their
 * offsets instead if this entry point is missing, if it returns null, or if the recorded encoding is unknown. */
typedef const void* (*REALGetStringCFStringProc)(REALstringStruct* string, int32_t reserved);

/* ---- Arrays */

/* Element types of arrays. */
enum { REALarrayOfDoubles = 2, REALarrayOfObjects = 4 };

/* Creates an array with the indexes 0 to upperBound and elements 0.0 or Nil. With -1 it is empty. Plugins create only empty
 * arrays, so a host may return null for other bounds. It also returns null on failure. */
typedef void* (*RuntimeArrayCreateProc)(int32_t elementType, int32_t upperBound);

/* Returns the upper bound, -1 for an empty array. */
typedef int32_t (*RuntimeUBoundProc)(void* array);

/* The procedures that work on the elements of one array. The insert procedures store at an index of the array, or at the
 * first index past its end, where the array grows. Plugins insert only at the end. An array of objects keeps its own
 * reference to each element, and an element may be null. The get procedure returns the element with full precision. */
typedef void (*REALarrayInsertDoubleProc)(void* array, int32_t index, double value);
typedef void (*REALarrayInsertObjectProc)(void* array, int32_t index, REALobjectStruct* value);
typedef double (*REALarrayGetDoubleProc)(void* array, int32_t index);

/* Return the procedure for the given array, or null if there is none. Plugins call these before each use of a procedure.
 * RuntimeArrayDirectGetInsertProc is the older name of the first two and serves both kinds of arrays.
 * RuntimeArrayDirectGetGetProc is the older name of the third. */
typedef REALarrayInsertDoubleProc (*PluginDoubleArrayInsertProc)(void* array);
typedef REALarrayInsertObjectProc (*PluginObjectArrayInsertProc)(void* array);
typedef REALarrayGetDoubleProc (*PluginDoubleArrayGetProc)(void* array);
typedef void* (*RuntimeArrayDirectGetInsertProc)(void* array);

/* ---- Memory blocks */

/* Creates a zero-filled block of exactly `size` bytes. Returns null if the size is negative or there is no memory. */
typedef REALmemoryBlockStruct* (*NewMemoryBlockProc)(int32_t size);

/* Return the address of the block's bytes, and their number. The address is valid while the caller has a reference: a plugin
 * locks a block that it received as an argument before it reads the bytes. */
typedef void* (*MemoryBlockGetPtrProc)(REALmemoryBlockStruct* block);
typedef int32_t (*MemoryBlockGetSizeProc)(REALmemoryBlockStruct* block);

/* ---- The list of all entry points, as X(name, type, host version that introduced it)
 *
 * The version of the entry points that exist in every host is 0.0. */
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
