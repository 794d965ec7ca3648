// Dictionaries of plain pointers are NSMapTables.
#import <Foundation/NSMapTable.h>

#include <stdint.h>

NSMapTable* CFDictionaryCreateMutable(const void* allocator, intptr_t capacity, const void* keyCallBacks,
                                      const void* valueCallBacks) {
    (void)allocator;
    if (keyCallBacks || valueCallBacks) return nil;
    return NSCreateMapTable(NSNonOwnedPointerMapKeyCallBacks, NSNonOwnedPointerMapValueCallBacks, (NSUInteger)capacity);
}

intptr_t CFDictionaryGetCount(NSMapTable* dictionary) { return (intptr_t)NSCountMapTable(dictionary); }

const void* CFDictionaryGetValue(NSMapTable* dictionary, const void* key) { return NSMapGet(dictionary, key); }

void CFDictionarySetValue(NSMapTable* dictionary, const void* key, const void* value) {
    NSMapInsert(dictionary, key, value);
}

void CFDictionaryRemoveValue(NSMapTable* dictionary, const void* key) { NSMapRemove(dictionary, key); }

void CFDictionaryApplyFunction(NSMapTable* dictionary, void (*function)(const void* key, const void* value, void*),
                               void* context) {
    NSMapEnumerator enumerator = NSEnumerateMapTable(dictionary);
    void *key, *value;
    while (NSNextMapEnumeratorPair(&enumerator, &key, &value))
        function(key, value, context);
    NSEndMapTableEnumeration(&enumerator);
}
