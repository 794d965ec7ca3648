/*
 * The smallest host that is of use: it loads a plugin, makes a colour, reads it, and catches an exception.
 *
 *     cc -std=c11 -I include examples/minimal_host.c -ldl -o minimal_host
 *     ./minimal_host build/m64/lib/libchromabridge.so
 *
 * It offers the nine entries below. A plugin does without the others: those for arrays, memory blocks and text from the
 * host.
 */
#include "chromabridge/host_abi.h"

#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* ---- Values: objects have a header of 24 bytes in every width, and the plugin's own data behind it */

struct REALstringStruct {
    int references;
    char text[]; /* UTF-8, NUL-terminated */
};

struct REALobjectStruct {
    const REALclassDefinition* record;
    REALstringStruct* message; /* of an exception; may be null */
    int references;
};
_Static_assert(sizeof(REALobjectStruct) <= REALinstanceDataOffset, "the plugin's data must not overlap the header");

/* ---- Classes: the host's own exceptions, and what plugins register */

static REALclassDefinition runtimeException = {.name = "RuntimeException"};
static REALclassDefinition outOfBoundsException = {.name = "OutOfBoundsException"};
static REALclassDefinition* classes[64] = {&runtimeException, &outOfBoundsException};
static size_t classCount = 2;

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

/* Declarations tell overloads apart. Null when the class has no such method. */
static REALfunction findMethod(const char* className, const char* declaration) {
    const REALclassDefinition* record = findClass(className);
    for (REALword i = 0; record && i < record->methodCount; ++i)
        if (strcmp(record->methods[i].declaration, declaration) == 0) return record->methods[i].function;
    return NULL;
}

/* ---- Objects and strings: created with one reference, freed when the last is given up */

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

/* Messages are UTF-8. A host that does more with text offers REALSetStringEncoding and is told. */
static REALstringStruct* buildString(const void* bytes, int32_t length) {
    if (length <= 0) return NULL;
    REALstringStruct* string = malloc(sizeof *string + (size_t)length + 1);
    if (!string) return NULL;
    string->references = 1;
    memcpy(string->text, bytes, (size_t)length);
    string->text[length] = '\0';
    return string;
}

static void unlockString(REALstringStruct* string) {
    if (string && --string->references == 0) free(string);
}

static void lockObject(REALobjectStruct* object) { ++object->references; }

static void unlockObject(REALobjectStruct* object) {
    if (!object || --object->references > 0) return;
    if (object->record->destructor) ((ObjectFunction)object->record->destructor)(object);
    unlockString(object->message);
    free(object);
}

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

/* Prints and forgets what is pending; 1 when something was. */
static int caught(void) {
    if (!pending) return 0;
    printf("%s: %s\n", pending->record->name, pending->message ? pending->message->text : "");
    unlockObject(pending);
    pending = NULL;
    return 1;
}

/* ---- Entries */

/* A host of this age gets the current records. */
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
        {"REALUnlockString", (void*)unlockString},
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

int main(int argc, char** argv) {
    void* library = argc == 2 ? dlopen(argv[1], RTLD_NOW) : NULL;
    REALPluginMainProc start = library ? (REALPluginMainProc)dlsym(library, "REALPluginMain") : NULL;
    if (!start) {
        fprintf(stderr, "usage: minimal_host PLUGIN\n%s\n", argc == 2 ? dlerror() : "");
        return 2;
    }
    start(resolve);
    const ConstructorColor constructorColor = (ConstructorColor)findMethod("NSColorZRX", "Constructor(c as color)");
    const ConstructorRGB constructorRGB = (ConstructorRGB)findMethod(
        "NSColorZRX", "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)");
    const GetRGB getRGB = (GetRGB)findMethod(
        "NSColorZRX", "getRGB(byref red as double, byref green as double, byref blue as double, byref alpha as double)");
    if (!constructorColor || !constructorRGB || !getRGB) {
        fprintf(stderr, "%s does not have the class NSColorZRX\n", argv[1]);
        return 1;
    }

    /* Dim orange As New NSColorZRX(a colour value with alpha 204), and orange.getRGB(red, green, blue, alpha) */
    REALobjectStruct* orange = newInstance("NSColorZRX");
    double red = 0, green = 0, blue = 0, alpha = 0;
    constructorColor(orange, 0xCCFF8000);
    if (!caught()) getRGB(orange, &red, &green, &blue, &alpha);
    if (!caught()) printf("red %.3f, green %.3f, blue %.3f, alpha %.3f\n", red, green, blue, alpha);
    unlockObject(orange);

    /* Dim tooMuch As New NSColorZRX(3.0, 0.0, 0.0), which is refused */
    REALobjectStruct* tooMuch = newInstance("NSColorZRX");
    constructorRGB(tooMuch, 3.0, 0.0, 0.0, 1.0);
    const int refused = caught();
    unlockObject(tooMuch);
    return refused ? 0 : 1;
}
