// What GoogleTest uses of this header of the system.
#pragma once

#define TARGET_OS_IPHONE 0
