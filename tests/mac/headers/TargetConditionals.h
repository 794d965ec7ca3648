// The parts of this system header that GoogleTest uses.
#pragma once

#define TARGET_OS_IPHONE 0
