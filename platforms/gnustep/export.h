// Marks a function that the platform's library exports in addition to GNUstep's own libraries.
#pragma once

#define GNUSTEP_EXPORT extern "C" __attribute__((visibility("default")))
