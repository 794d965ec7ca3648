// What a terminal can show.
#pragma once

namespace host {

// Whether the file descriptor is a terminal with colours, and the user does not forbid them by NO_COLOR.
bool showsColors(int descriptor);

} // namespace host
