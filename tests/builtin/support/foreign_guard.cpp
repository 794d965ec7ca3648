// A guard as in foreign code. It is compiled several times, by other compilers and with other flags than the tests.
#include "builtin/objc_runtime.h"

extern "C" chroma::id FOREIGN_GUARD(void (*body)(void*), void* context) {
#if defined(__LP64__)
    try {
        body(context);
    } catch (const chroma::ThrownObject thrown) {
        return reinterpret_cast<chroma::id>(thrown);
    }
#else
    void* guard[9];
    chroma::objc_exception_try_enter(guard);
    if (__builtin_setjmp(guard) != 0) return chroma::objc_exception_extract(guard);
    body(context);
    chroma::objc_exception_try_exit(guard);
#endif
    return nullptr;
}
