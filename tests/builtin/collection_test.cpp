// Data, arrays and dictionaries.
#include "support/native.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <sys/stat.h>

using namespace chroma;
using namespace chroma::test;

TEST(Data, OwnsACopyOfItsBytes) {
    const Pool pool;
    char bytes[] = "abc";
    const id data = sendClass("NSData", "dataWithBytes:length:", static_cast<const void*>(bytes), std::uintptr_t{3});
    const id same = sendClass("NSData", "dataWithBytes:length:", static_cast<const void*>("abc"), std::uintptr_t{3});
    bytes[0] = 'x';
    EXPECT_EQ(send<std::uintptr_t>(data, "length"), 3u);
    EXPECT_EQ(std::memcmp(send<const void*>(data, "bytes"), "abc", 3), 0);
    EXPECT_TRUE(send<BOOL>(data, "isEqual:", same));
    EXPECT_FALSE(send<BOOL>(data, "isEqual:", sendClass("NSData", "data")));
    EXPECT_EQ(send<const void*>(sendClass("NSData", "data"), "bytes"), nullptr);
}

TEST(Data, ReadsWholeFilesOrNothing) {
    const Pool pool;
    const std::string path = testing::TempDir() + "builtin-data-\xC3\xA9";
    const std::string contents(50000, 'c');
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite(contents.data(), 1, contents.size(), file);
    std::fclose(file);

    const id data = sendClass("NSData", "dataWithContentsOfFile:", string(path));
    ASSERT_EQ(send<std::uintptr_t>(data, "length"), contents.size());
    EXPECT_EQ(std::memcmp(send<const void*>(data, "bytes"), contents.data(), contents.size()), 0);
    std::remove(path.c_str());
    EXPECT_EQ(sendClass("NSData", "dataWithContentsOfFile:", string(path)), nullptr);
    EXPECT_EQ(sendClass("NSData", "dataWithContentsOfFile:", string(testing::TempDir())), nullptr) << "a folder";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(sendClass("NSData", "dataWithContentsOfFile:", string(path)), nullptr) << "a pipe";
    std::remove(path.c_str());
    EXPECT_EQ(sendClass("NSData", "dataWithContentsOfFile:", id{}), nullptr);
}

TEST(Arrays, HoldTheirObjectsInOrder) {
    Pool pool;
    const id objects[] = {string("a"), string("b"), string("a")};
    const id array = sendClass("NSArray", "arrayWithObjects:count:", &objects[0], std::uintptr_t{3});
    EXPECT_EQ(send<std::uintptr_t>(array, "count"), 3u);
    EXPECT_EQ(send(array, "objectAtIndex:", std::uintptr_t{1}), objects[1]);
    EXPECT_TRUE(raises("NSRangeException", [&] { send(array, "objectAtIndex:", std::uintptr_t{3}); }));
    const id withNil[] = {objects[0], nullptr};
    EXPECT_TRUE(raises("NSInvalidArgumentException",
                       [&] { sendClass("NSArray", "arrayWithObjects:count:", &withNil[0], std::uintptr_t{2}); }));

    const id enumerator = send(array, "objectEnumerator");
    for (const id object : objects) {
        EXPECT_EQ(send(enumerator, "nextObject"), object);
    }
    EXPECT_EQ(send(enumerator, "nextObject"), nullptr);
    EXPECT_EQ(send(enumerator, "nextObject"), nullptr);
    pool.drain();
    for (const char* const cls : {"NSArray", "NSEnumerator", "NSString"}) {
        EXPECT_EQ(builtin_liveInstances(cls), 0u) << cls;
    }
}

TEST(Dictionaries, MapPlainPointers) {
    int first = 1, second = 2;
    const CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr);
    CFDictionarySetValue(dictionary, &first, &second);
    CFDictionarySetValue(dictionary, &second, &second);
    CFDictionarySetValue(dictionary, &first, &first);
    EXPECT_EQ(CFDictionaryGetCount(dictionary), 2);
    EXPECT_EQ(CFDictionaryGetValue(dictionary, &first), &first);
    std::size_t equal = 0;
    CFDictionaryApplyFunction(
        dictionary,
        [](const void* key, const void* value, void* context) { *static_cast<std::size_t*>(context) += key == value; },
        &equal);
    EXPECT_EQ(equal, 2u);
    CFDictionaryRemoveValue(dictionary, &first);
    CFDictionaryRemoveValue(dictionary, &first);
    EXPECT_EQ(CFDictionaryGetValue(dictionary, &first), nullptr);
    EXPECT_EQ(CFDictionaryGetCount(dictionary), 1);
    CFRelease(dictionary);
    EXPECT_EQ(builtin_liveInstances("NSMutableDictionary"), 0u);
}
