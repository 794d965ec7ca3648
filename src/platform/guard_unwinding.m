// The one statement that only an Objective-C compiler can write. It is kept apart from C++: in a file of both languages, the
// handlers of one interfere with those of the other.

#if defined(__APPLE__)
// A throw retains the object there and the end of a handler releases it, which may be the last reference.
id objc_retainAutorelease(id object);
#else
static id objc_retainAutorelease(id object) { return object; } // a throw does not retain it
#endif

// Runs body(context). Returns nil when it returned, the object when a throw ended it, and `nothing` for a thrown nil. The
// object lives at least until the innermost pool of the caller is drained. C++ exceptions propagate.
id chroma_guard_run(void (*body)(void*), void* context, id nothing) {
    @try {
        body(context);
    } @catch (id thrown) {
        return thrown ? objc_retainAutorelease(thrown) : nothing;
    }
    return (id)0;
}
