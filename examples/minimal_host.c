/*
 * The smallest useful host. It loads a plugin, creates a colour, reads it by reference and as an array, passes a string,
 * receives a memory block, and catches an exception. With a plugin that has no colours it prints the plugin's classes.
 *
 *     cc -std=c11 -I include examples/minimal_host.c -ldl -o minimal_host
 *     ./minimal_host build/m64/lib/libchromabridge.so
 *
 * It provides the entry points that its program needs. Every other entry point is optional.
 */
#include "chromabridge/host_abi.h"

#include <dlfcn.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* ---- Values: an object is a header of 24 bytes in every width, then the plugin's own data */

struct REALstringStruct {
    int32_t references;
    unsigned char fields[12]; /* the buffer and the length, at offsets 4 and 12 */
    uint32_t encoding;
    char buffer[]; /* the text starts at its second byte; NUL-terminated */
};
_Static_assert(offsetof(REALstringStruct, fields) == REALstringBufferOffset, "the buffer's address comes first");

struct REALobjectStruct {
    const REALclassDefinition* record;
    REALstringStruct* message; /* of an exception; may be null */
    int references;
};
_Static_assert(sizeof(REALobjectStruct) <= REALinstanceDataOffset, "the plugin's data must not overlap the header");

/* The data of arrays and memory blocks, which are objects. */
typedef struct {
    void* contents;
    int32_t count; /* of doubles, or bytes */
} Storage;

static Storage* storageOf(void* object) { return (Storage*)((char*)object + REALinstanceDataOffset); }

static void releaseStorage(REALobjectStruct* object) { free(storageOf(object)->contents); }

/* ---- Classes: the host's own exceptions, and the classes that plugins register */

static REALclassDefinition runtimeException = {.name = "RuntimeException"};
static REALclassDefinition outOfBoundsException = {.name = "OutOfBoundsException"};
static REALclassDefinition doubleArray = {
    .name = "Double()", .instanceDataSize = sizeof(Storage), .destructor = (REALfunction)releaseStorage};
static REALclassDefinition memoryBlock = {
    .name = "MemoryBlock", .instanceDataSize = sizeof(Storage), .destructor = (REALfunction)releaseStorage};
static REALclassDefinition* classes[64] = {&runtimeException, &outOfBoundsException, &doubleArray, &memoryBlock};
static size_t classCount = 4;

static void registerClass(REALclassDefinition* record) {
    if (classCount == sizeof classes / sizeof *classes) return;
    record->instanceDataOffset = REALinstanceDataOffset;
    classes[classCount++] = record;
}

static const REALclassDefinition* findClass(const char* name) {
    for (size_t i = 0; i < classCount; ++i)
        if (strcmp(classes[i]->name, name) == 0) return classes[i];
    return NULL;
}

/* Returns the function with the declaration, which distinguishes overloads. Exits if the class has no such member. */
static REALfunction findMethod(const char* className, const char* declaration) {
    const REALclassDefinition* record = findClass(className);
    for (REALword i = 0; record && i < record->methodCount; ++i)
        if (strcmp(record->methods[i].declaration, declaration) == 0) return record->methods[i].function;
    for (REALword i = 0; record && i < record->sharedMethodCount; ++i)
        if (strcmp(record->sharedMethods[i].declaration, declaration) == 0) return record->sharedMethods[i].function;
    fprintf(stderr, "the plugin does not have %s.%s\n", className, declaration);
    exit(1);
}

/* ---- Objects and strings: created with one reference, destroyed when the last is released */

typedef void (*ObjectFunction)(REALobjectStruct*);

static REALobjectStruct* newInstance(const char* className) {
    const REALclassDefinition* record = findClass(className);
    if (!record) return NULL;
    REALobjectStruct* object = calloc(1, REALinstanceDataOffset + (size_t)record->instanceDataSize);
    if (!object) return NULL;
    object->record = record;
    object->references = 1;
    if (record->constructor) ((ObjectFunction)record->constructor)(object);
    return object;
}

static REALstringStruct* buildStringWithEncoding(const void* bytes, int32_t length, uint32_t encoding) {
    if (length <= 0) return NULL;
    REALstringStruct* string = calloc(1, sizeof *string + (size_t)length + 2);
    if (!string) return NULL;
    const char* buffer = string->buffer;
    string->references = 1;
    string->encoding = encoding;
    memcpy(string->buffer + 1, bytes, (size_t)length);
    memcpy(&string->fields[0], &buffer, sizeof buffer);
    memcpy(&string->fields[REALstringLengthOffset - REALstringBufferOffset], &length, sizeof length);
    return string;
}

static REALstringStruct* buildString(const void* bytes, int32_t length) {
    return buildStringWithEncoding(bytes, length, REALencodingUnknown);
}

static uint32_t getEncoding(REALstringStruct* string) { return string->encoding; }
static void setEncoding(REALstringStruct* string, uint32_t encoding) { string->encoding = encoding; }
static void lockString(REALstringStruct* string) {
    if (string) ++string->references;
}

static void unlockString(REALstringStruct* string) {
    if (string && --string->references == 0) free(string);
}

static void lockObject(REALobjectStruct* object) {
    if (object) ++object->references;
}

static void unlockObject(REALobjectStruct* object) {
    if (!object || --object->references > 0) return;
    if (object->record->destructor) ((ObjectFunction)object->record->destructor)(object);
    unlockString(object->message);
    free(object);
}

/* ---- Arrays of doubles, and memory blocks */

static void* newArray(int32_t elementType, int32_t upperBound) {
    return elementType == REALarrayOfDoubles && upperBound == -1 ? newInstance("Double()") : NULL;
}

static int32_t upperBound(void* array) { return storageOf(array)->count - 1; }

static double elementAt(void* array, int32_t index) { return ((double*)storageOf(array)->contents)[index]; }

/* Plugins insert at the end. */
static void insertDouble(void* array, int32_t index, double value) {
    Storage* storage = storageOf(array);
    double* grown = index == storage->count ? realloc(storage->contents, ((size_t)index + 1) * sizeof value) : NULL;
    if (!grown) return;
    grown[index] = value;
    storage->contents = grown;
    ++storage->count;
}

static REALarrayInsertDoubleProc insertProcedure(void* array) { return array ? insertDouble : NULL; }

static REALmemoryBlockStruct* newBlock(int32_t size) {
    REALobjectStruct* block = size > 0 ? newInstance("MemoryBlock") : NULL;
    if (!block) return NULL;
    storageOf(block)->contents = calloc(1, (size_t)size);
    storageOf(block)->count = size;
    return (REALmemoryBlockStruct*)block;
}

static void* blockBytes(REALmemoryBlockStruct* block) { return storageOf(block)->contents; }
static int32_t blockSize(REALmemoryBlockStruct* block) { return storageOf(block)->count; }

/* ---- Exceptions: recorded by the plugin, raised by the host when the call has returned */

static REALobjectStruct* pending; /* owned */

static void setStringProperty(REALobjectStruct* object, const char* property, REALstringStruct* value) {
    if (strcmp(property, "Message") != 0) return;
    if (value) ++value->references;
    unlockString(object->message);
    object->message = value;
}

static void raiseException(REALobjectStruct* exception) {
    if (pending) return; /* the first is the cause */
    lockObject(exception);
    pending = exception;
}

/* Prints and releases the pending exception. Returns 0 if there is none. */
static int caught(void) {
    if (!pending) return 0;
    printf("%s: %s\n", pending->record->name, pending->message ? pending->message->buffer + 1 : "");
    unlockObject(pending);
    pending = NULL;
    return 1;
}

/* ---- Entries */

/* From 2012.0 on, hosts receive class records in the current layout. */
static double version(void) { return 2021.0; }

static void* resolve(const char* name) {
    static const struct {
        const char* name;
        void* address;
    } entries[] = {
        {"REALGetRBVersion", (void*)version},
        {"PluginRegisterClass", (void*)registerClass},
        {"PluginNewInstance", (void*)newInstance},
        {"REALLockObject", (void*)lockObject},
        {"REALUnlockObject", (void*)unlockObject},
        {"REALBuildString", (void*)buildString},
        {"REALBuildStringWithEncoding", (void*)buildStringWithEncoding},
        {"REALGetStringEncoding", (void*)getEncoding},
        {"REALSetStringEncoding", (void*)setEncoding},
        {"REALLockString", (void*)lockString},
        {"REALUnlockString", (void*)unlockString},
        {"RuntimeArrayCreateSingleDimBoundedArray", (void*)newArray},
        {"PluginDoubleArrayInsertProc", (void*)insertProcedure},
        {"newMemoryBlock", (void*)newBlock},
        {"memoryBlockGetPtr", (void*)blockBytes},
        {"memoryBlockGetSize", (void*)blockSize},
        {"REALSetPropValueString", (void*)setStringProperty},
        {"RuntimeRaiseException", (void*)raiseException},
    };
    for (size_t i = 0; i < sizeof entries / sizeof *entries; ++i)
        if (strcmp(entries[i].name, name) == 0) return entries[i].address;
    return NULL;
}

/* ---- A program */

typedef void (*ConstructorColor)(REALobjectStruct*, HostColor);
typedef void (*ConstructorRGB)(REALobjectStruct*, double, double, double, double);
typedef void (*GetRGB)(REALobjectStruct*, double*, double*, double*, double*);
typedef REALarrayDouble* (*Components)(REALobjectStruct*);
typedef REALobjectStruct* (*SpaceForName)(REALstringStruct*);
typedef REALmemoryBlockStruct* (*ProfileData)(REALobjectStruct*);

#define METHOD(type, className, declaration) ((type)findMethod(className, declaration))

/* Dim orange As New NSColorZRX(a colour value with alpha 204), its getRGB and its Components */
static void readColor(void) {
    REALobjectStruct* orange = newInstance("NSColorZRX");
    double red = 0, green = 0, blue = 0, alpha = 0;
    METHOD(ConstructorColor, "NSColorZRX", "Constructor(c as color)")(orange, 0xCCFF8000);
    METHOD(GetRGB, "NSColorZRX",
           "getRGB(byref red as double, byref green as double, byref blue as double, byref alpha as double)")
    (orange, &red, &green, &blue, &alpha);
    if (!caught()) printf("red %.3f, green %.3f, blue %.3f, alpha %.3f\n", red, green, blue, alpha);

    void* components = METHOD(Components, "NSColorZRX", "Components as double()")(orange);
    for (int32_t i = 0; components && i <= upperBound(components); ++i)
        printf("%s%.3f", i ? ", " : "components ", elementAt(components, i));
    printf("\n");
    unlockObject(components);
    unlockObject(orange);
}

/* The bytes of NSColorSpaceZRX.colorSpaceForColorSpaceName("NSCalibratedRGBColorSpace").ICCProfileData */
static void readProfile(void) {
    const char* name = "NSCalibratedRGBColorSpace";
    REALstringStruct* string = buildStringWithEncoding(name, (int32_t)strlen(name), REALencodingASCII);
    REALobjectStruct* space =
        METHOD(SpaceForName, "NSColorSpaceZRX", "colorSpaceForColorSpaceName(name as string) as NSColorSpaceZRX")(string);
    unlockString(string);
    if (caught() || !space) return;
    REALmemoryBlockStruct* profile = METHOD(ProfileData, "NSColorSpaceZRX", "ICCProfileData as Memoryblock")(space);
    if (!caught() && profile)
        printf("profile of %d bytes, a \"%.4s\"\n", blockSize(profile), (char*)blockBytes(profile) + 36);
    unlockObject((REALobjectStruct*)profile);
    unlockObject(space);
}

/* Dim tooMuch As New NSColorZRX(3.0, 0.0, 0.0), which is refused */
static int isRefused(void) {
    REALobjectStruct* tooMuch = newInstance("NSColorZRX");
    METHOD(ConstructorRGB, "NSColorZRX",
           "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)")
    (tooMuch, 3.0, 0.0, 0.0, 1.0);
    const int refused = caught();
    unlockObject(tooMuch);
    return refused;
}

int main(int argc, char** argv) {
    void* library = argc == 2 ? dlopen(argv[1], RTLD_NOW) : NULL;
    REALPluginMainProc start = library ? (REALPluginMainProc)dlsym(library, "REALPluginMain") : NULL;
    if (!start) {
        fprintf(stderr, "usage: minimal_host PLUGIN\n%s\n", argc == 2 ? dlerror() : "");
        return 2;
    }
    const size_t own = classCount;
    start(resolve);
    if (!findClass("NSColorZRX")) {
        for (size_t i = own; i < classCount; ++i)
            printf("class %s\n", classes[i]->name);
        return 0;
    }
    readColor();
    readProfile();
    return isRefused() ? 0 : 1;
}
