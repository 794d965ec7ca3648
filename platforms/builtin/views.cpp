// Compares the platform's own declarations with the plugin's: this file does not compile if they contradict each other.
// Only this file of the platform knows the plugin.
#include "builtin/constants.h"
#include "builtin/corefoundation.h"
#include "builtin/objc_runtime.h"

#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/objc.h"
