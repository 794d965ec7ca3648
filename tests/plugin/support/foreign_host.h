// A host of the tests' own, written from the ABI header alone and as strict as a host may be: an entry is there from its
// version on, storage shows while it is locked, text is read in the encoding that it is tagged with. It can leave entries
// out, refuse work and throw; it counts what it hands out, so that a test can show that everything came back, and tells what
// it was asked.
#pragma once

#include "chromabridge/host_abi.h"

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace foreign {

// Class, "Message" and "ErrorNumber" (-1: never set) of an exception.
using Raised = std::tuple<std::string, std::string, int>;

// Process-wide, since entries are plain functions. Each test runs in a process of its own.
struct Host {
    double version = 2021.0;
    std::set<std::string> missing;             // entries that the resolver does not know
    std::map<std::string, int> asked;          // how often the resolver was asked, by entry
    std::vector<REALclassDefinition*> records; // as received
    std::set<std::string> plainClasses{"RuntimeException",   "OutOfBoundsException", "OutOfMemoryException",
                                       "NilObjectException", "IllegalCastException", "UnsupportedOperationException",
                                       "NSExceptionZRX"}; // without a record
    std::vector<Raised> raised;                           // since the last takeRaised
    bool showsStorage = true; // whether double arrays and memory blocks tell where their contents are
    // By entry, what happens before it does anything: it may throw; true: the entry answers zero and does nothing.
    std::map<std::string, std::function<bool()>> before;
    // What was asked of the host and by `note`, in order, while this is not null.
    std::string* trace = nullptr;

    static Host& instance();
    static void* resolve(const char* entryName);

    // Adds a word to the trace, if one is kept.
    void note(const std::string& word);

    // The raised exceptions, which are forgotten then.
    std::vector<Raised> takeRaised();

    // What is alive: objects, arrays and memory blocks; strings.
    static int liveObjects();
    static int liveStrings();
};

// Values of every kind: objects, arrays, memory blocks, strings.
int references(const void* value);
void lock(const void* value);
void unlock(const void* value);

// A value with one reference that ends with this; may be null.
template <class T>
class Owned {
public:
    Owned(T* value) : value_(value) {}
    ~Owned() {
        if (value_) unlock(value_);
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    T* get() const { return value_; }
    operator T*() const { return value_; }

private:
    T* value_;
};
template <class T>
Owned(T*) -> Owned<T>;

// Objects. `make` answers a new instance with one reference, its class constructor run; `plain` one with string properties,
// of a class without a record.
REALobjectStruct* make(const char* className);
REALobjectStruct* plain(const char* className, const std::map<std::string, std::string>& properties);
std::string classOf(const void* object);

// A function from a registered record in the current layout, by its declaration; null when there is none.
REALfunction method(const char* className, const std::string& declaration);

template <class Function>
Function* bound(REALfunction function) {
    return reinterpret_cast<Function*>(function);
}

// Strings: a new one with one reference; text and encoding of an existing one ("" and 0 for null); text, then gives it up.
REALstringStruct* string(const std::string& bytes, std::uint32_t encoding = REALencodingUTF8);
std::string bytesOf(REALstringStruct* string);
std::uint32_t encodingOf(REALstringStruct* string);
std::string take(REALstringStruct* string);

// Arrays and memory blocks: new ones, and the contents of existing ones.
REALarrayDouble* doubles(const std::vector<double>& values);
std::vector<double> take(REALarrayDouble* array); // gives it up
std::vector<REALobjectStruct*> objectsOf(void* array);
REALmemoryBlockStruct* block(const std::string& bytes);
REALmemoryBlockStruct* block(const std::string& bytes, std::int32_t toldSize);
std::string bytesOf(REALmemoryBlockStruct* block);

} // namespace foreign
