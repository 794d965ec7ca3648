// What bound functions are called with: receivers by class, and arguments by type, the ordinary one first.
#pragma once

#include "functions.h"
#include "platform/objc.h"

namespace matrix {

// The native objects that host objects are made around; each is kept by one retain.
void prepareNatives();
std::size_t retainsOfNatives();

// Receivers: null, an empty one, and one around each native object of the class. The number of forms, and a new reference.
std::size_t receiverForms(const host::ClassInfo& info);
host::Object* newReceiver(const host::ClassInfo& info, std::size_t form);
constexpr std::size_t nullReceiver = 0, emptyReceiver = 1, ordinaryReceiver = 2;

// Whether a host object holds a native one.
bool isFilled(const host::Object* object);

// The forms that an argument may take.
std::size_t argumentForms(const host::Parameter& parameter);
host::Slot newArgument(const host::Parameter& parameter, std::size_t form);

// What the form is refused with, however good the other arguments are; null when it is not.
const char* refusal(const host::Parameter& parameter, std::size_t form);

} // namespace matrix
