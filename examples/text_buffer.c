/*
 * A plugin in plain C. It adds the class TextBuffer, whose objects collect text as UTF-8:
 *
 *     Dim buffer As New TextBuffer
 *     buffer.Append "ab"
 *     Print buffer.Text, buffer.Length, buffer.ByteAt(1)   // ab 2 98
 *
 *     cc -std=c11 -shared -fPIC -fvisibility=hidden -I include examples/text_buffer.c -o text_buffer.so
 *     chromahost validate text_buffer.so
 */
#include "chromabridge/host_abi.h"

#include <stdlib.h>
#include <string.h>

/* The entry points of the host, each null if the host does not provide it. */
#define FIELD(name, Type, since) Type name;
static struct { REAL_ENTRY_POINTS(FIELD) } host;

#define CALL(entry, ...) (host.entry ? host.entry(__VA_ARGS__) : 0)
#define CALL_VOID(entry, ...) ((void)(host.entry && (host.entry(__VA_ARGS__), 1)))

/* ---- Instance data, zero-filled by the host */

typedef struct {
    char* bytes; /* owned, null if the buffer is empty */
    int32_t length;
} Buffer;

static Buffer* bufferOf(REALobjectStruct* object) { return (Buffer*)((char*)object + REALinstanceDataOffset); }

static void destroy(REALobjectStruct* object) { free(bufferOf(object)->bytes); }

/* ---- Strings and exceptions */

/* Returns a new string, which the caller owns, or null for no bytes. */
static REALstringStruct* newString(const char* bytes, int32_t length) {
    if (length == 0) return NULL;
    if (host.REALBuildStringWithEncoding) return host.REALBuildStringWithEncoding(bytes, length, REALencodingUTF8);
    REALstringStruct* string = CALL(REALBuildString, bytes, length);
    if (string) CALL_VOID(REALSetStringEncoding, string, REALencodingUTF8);
    return string;
}

static void raise(const char* className, const char* text) {
    REALobjectStruct* exception = CALL(PluginNewInstance, className);
    if (!exception) exception = CALL(PluginNewInstance, "RuntimeException");
    if (!exception) return;
    REALstringStruct* message = newString(text, (int32_t)strlen(text));
    CALL_VOID(REALSetPropValueString, exception, "Message", message);
    CALL_VOID(RuntimeRaiseException, exception);
    if (message) CALL_VOID(REALUnlockString, message);
    CALL_VOID(REALUnlockObject, exception);
}

/* ---- The functions of the class */

static void append(REALobjectStruct* object, REALstringStruct* text) {
    if (!object || !text || !host.REALLockString || !host.REALUnlockString) return;
    REALstringStruct* converted = CALL(REALConvertString, text, REALencodingUTF8);
    REALstringStruct* source = converted ? converted : text;
    const char* storage;
    int32_t length;
    host.REALLockString(source); /* the storage is valid until the string is unlocked */
    memcpy(&storage, (char*)source + REALstringBufferOffset, sizeof storage);
    memcpy(&length, (char*)source + REALstringLengthOffset, sizeof length);
    Buffer* buffer = bufferOf(object);
    const int isEmpty = !storage || length <= 0;
    const int fits = !isEmpty && length <= INT32_MAX - buffer->length;
    char* bytes = fits ? realloc(buffer->bytes, (size_t)buffer->length + (size_t)length) : NULL;
    if (bytes) {
        memcpy(bytes + buffer->length, storage + 1, (size_t)length);
        buffer->bytes = bytes;
        buffer->length += length;
    }
    host.REALUnlockString(source);
    if (converted) host.REALUnlockString(converted);
    if (!isEmpty && !bytes) raise("OutOfMemoryException", "The text does not fit into memory.");
}

static HostInteger byteAt(REALobjectStruct* object, HostInteger index) {
    if (!object) return 0;
    if (index >= 0 && index < bufferOf(object)->length) return (unsigned char)bufferOf(object)->bytes[index];
    raise("OutOfBoundsException", "The buffer has no byte with this index.");
    return 0;
}

static REALstringStruct* getText(REALobjectStruct* object, REALword parameter) {
    (void)parameter;
    return object ? newString(bufferOf(object)->bytes, bufferOf(object)->length) : NULL;
}

static void setText(REALobjectStruct* object, REALword parameter, REALstringStruct* text) {
    (void)parameter;
    if (!object) return;
    bufferOf(object)->length = 0;
    append(object, text);
}

static HostInteger getLength(REALobjectStruct* object, REALword parameter) {
    (void)parameter;
    return object ? bufferOf(object)->length : 0;
}

/* ---- The class record, and its legacy layout for hosts older than 2012.0 */

static REALproperty properties[] = {
    {NULL, "Text", "string", REALpropertyFlags, (REALfunction)getText, (REALfunction)setText, 0, {0}},
    {NULL, "Length", "Integer", REALpropertyFlags, (REALfunction)getLength, NULL, 0, {0}},
};
static REALmethodDefinition methods[] = {
    {(REALfunction)append, NULL, "Append(text as string)", REALmethodFlags, {0}},
    {(REALfunction)byteAt, NULL, "ByteAt(index as integer) as integer", REALmethodFlags, {0}},
};
static REALclassDefinition record = {
    .name = "TextBuffer",
    .instanceDataSize = (sizeof(Buffer) + 15) / 16 * 16,
    .destructor = (REALfunction)destroy,
    .properties = properties,
    .propertyCount = 2,
    .methods = methods,
    .methodCount = 2,
    .flags = REALclassFlags,
};
static REALpropertyLegacy legacyProperties[2];
static REALmethodDefinitionLegacy legacyMethods[2];

static int32_t controlVersionFor(double version) {
#define ROW(since, controlVersion)                                                                                          \
    if (version >= since) return controlVersion;
    REAL_CONTROL_VERSIONS(ROW)
    return REALcontrolVersionLegacy;
}

/* A legacy record consists of the first words of the current one. */
static void useLegacyLayout(void) {
    for (int i = 0; i < 2; ++i) {
        memcpy(&legacyProperties[i], &properties[i], sizeof legacyProperties[i]);
        memcpy(&legacyMethods[i], &methods[i], sizeof legacyMethods[i]);
    }
    record.properties = (REALproperty*)legacyProperties;
    record.methods = (REALmethodDefinition*)legacyMethods;
}

__attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    if (!resolver || record.version) return; /* nothing to look up, or registered already */
#define LOOK_UP(name, Type, since) host.name = (Type)resolver(#name);
    REAL_ENTRY_POINTS(LOOK_UP)
    record.version = controlVersionFor(host.REALGetRBVersion ? host.REALGetRBVersion() : 0.0);
    if (record.version == REALcontrolVersionLegacy) useLegacyLayout();
    CALL_VOID(RegisterPluginVersion, (int32_t)record.version);
    CALL_VOID(PluginRegisterClass, &record);
}
