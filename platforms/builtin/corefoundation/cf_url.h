// CFURL: as much of a URL as the platform's own files need, the path that it names.
#pragma once

#include "foundation/string.h"

namespace chroma::builtin {

struct URL : Object {
    static ClassObject cls;

    Ref<String> path; // escapes decoded, no slash at the end; null when the URL names none
};

ClassTable tableOfNSURL();

} // namespace chroma::builtin
