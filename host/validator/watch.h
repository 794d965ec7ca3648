// Watches how a plugin uses the entry points and values of the host.
#pragma once

#include "values/values.h"

#include <cstdint>
#include <string>
#include <vector>

namespace host::validator {

enum class Misuse {
    otherThread,    // an entry point called on another thread
    destroyedValue, // a value used after it was destroyed
    unownedResult,  // a result without a reference for the caller
    instanceData,   // a write beyond the instance data
};

struct MisuseNote {
    Misuse kind;
    std::string text;
};

// Records a misuse. Any thread may call it.
void note(Misuse kind, const std::string& text);
std::vector<MisuseNote> takeMisuses();

// Records writes beyond a block of the host or into a released one. `writer` names the function that ran before.
void checkMemory(const std::string& writer);

// The versions and classes that the plugin has announced and registered so far.
struct Announcement {
    std::vector<std::int32_t> versions;
    bool afterClass = false; // whether a version came after a class
    int classes = 0;
};
const Announcement& announcement();

// The resolver for plugins. It returns the entry points of faults.h, watched. The thread that calls it first is the host's.
void* watchedEntry(const char* name);

// From this call on, the plugin can read the text of a string only while it has locked the string. Reading it at another
// time crashes.
void hideUnlockedText();
void hideText(String* string); // for a string that the plugin borrows or receives; does nothing before hideUnlockedText()
void showAllText();

} // namespace host::validator
