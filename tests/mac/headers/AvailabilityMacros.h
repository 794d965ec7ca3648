// The parts of this system header that GoogleTest uses.
#pragma once
