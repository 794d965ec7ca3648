#include "platform/objc.h"

extern "C" RESULT message(chroma::id object, chroma::Message<RESULT()>& send) { return send(object); }
