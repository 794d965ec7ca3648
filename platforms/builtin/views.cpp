// The platform as it declares itself and as the plugin declares it: where the two contradict each other, this file does not
// compile. The only one here that knows of the plugin.
#include "builtin/constants.h"
#include "builtin/corefoundation.h"
#include "builtin/objc_runtime.h"

#include "platform/corefoundation.h"
#include "platform/guard.h"
#include "platform/objc.h"
