#include "platform/objc.h"

extern "C" RESULT message(chroma::id object, chroma::Selector& selector) { return chroma::send<RESULT>(object, selector); }
