// What the platform's library offers besides GNUstep's own libraries.
#pragma once

#define GNUSTEP_EXPORT extern "C" __attribute__((visibility("default")))
