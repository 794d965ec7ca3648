// A test host, written from the ABI header only and as strict as a host may be. An entry exists from its version on,
// storage shows only while it is locked, and text is read in its tagged encoding. The host can omit entries, refuse work
// and throw. It counts the references that it hands out, so that tests can check that all were released, and it records the
// calls.
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

// Process-wide, because entries are plain functions. Each test runs in a separate process.
struct Host {
    double version = 2021.0;
    std::set<std::string> missing;             // entries that the resolver does not know
    std::map<std::string, int> lookUps;        // the number of look-ups by entry
    std::vector<REALclassDefinition*> records; // as received
    std::set<std::string> plainClasses{"RuntimeException",   "OutOfBoundsException", "OutOfMemoryException",
                                       "NilObjectException", "IllegalCastException", "UnsupportedOperationException",
                                       "NSExceptionZRX"}; // without a record
    std::vector<Raised> raised;                           // since the last call of takeRaised
    bool showsStorage = true; // whether double arrays and memory blocks report the address of their contents
    // Functions by entry, called before the entry does anything. A function may throw. If it returns true, the entry does
    // nothing and returns zero.
    std::map<std::string, std::function<bool()>> before;
    // While not null, receives the calls of the host and the words of `note`, in order.
    std::string* trace = nullptr;

    static Host& instance();
    static void* resolve(const char* entryName);

    // Adds a word to the trace, if there is one.
    void note(const std::string& word);

    // Returns and clears the raised exceptions.
    std::vector<Raised> takeRaised();

    // The numbers of live values: objects, arrays and memory blocks; strings.
    static int liveObjects();
    static int liveStrings();
};

// Values of every kind: objects, arrays, memory blocks, strings.
int references(const void* value);
void lock(const void* value);
void unlock(const void* value);

// Owns one reference to a value, and releases it when destroyed. May be null.
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

// Objects. `make` returns a new instance with one reference, after its class constructor has run. `plain` returns one with
// string properties, of a class without a record.
REALobjectStruct* make(const char* className);
REALobjectStruct* plain(const char* className, const std::map<std::string, std::string>& properties);
std::string classOf(const void* object);

// Returns a function from a registered record in the current layout by its declaration, or null if there is none.
REALfunction method(const char* className, const std::string& declaration);

template <class Function>
Function* bound(REALfunction function) {
    return reinterpret_cast<Function*>(function);
}

// Strings: creates one with one reference; returns text and encoding ("" and 0 for null); returns the text and releases the
// string.
REALstringStruct* string(const std::string& bytes, std::uint32_t encoding = REALencodingUTF8);
std::string bytesOf(REALstringStruct* string);
std::uint32_t encodingOf(REALstringStruct* string);
std::string take(REALstringStruct* string);

// Arrays and memory blocks: creates new ones, and returns the contents of existing ones.
REALarrayDouble* doubles(const std::vector<double>& values);
std::vector<double> take(REALarrayDouble* array); // releases the array
std::vector<REALobjectStruct*> objectsOf(void* array);
REALmemoryBlockStruct* block(const std::string& bytes);
REALmemoryBlockStruct* block(const std::string& bytes, std::int32_t reportedSize);
std::string bytesOf(REALmemoryBlockStruct* block);

} // namespace foreign
