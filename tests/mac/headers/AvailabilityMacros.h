// What GoogleTest uses of this header of the system.
#pragma once
