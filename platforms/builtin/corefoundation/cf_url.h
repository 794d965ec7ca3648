// CFURL: the platform needs only the path of a URL.
#pragma once

#include "foundation/string.h"

namespace chroma::builtin {

struct URL : Object {
    static ClassObject cls;

    Ref<String> path; // with decoded escapes, without a trailing slash; null if there is none
};

ClassTable tableOfNSURL();

} // namespace chroma::builtin
