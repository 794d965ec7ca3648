// The one statement that only an Objective-C compiler can write. Kept apart from C++: in a file that is both, the two
// languages' handlers get in each other's way.

// Runs body(context); answers nil when it returned and the object when it ended by a throw, `nothing` for a thrown nil. C++
// exceptions pass.
id chroma_guard_run(void (*body)(void*), void* context, id nothing) {
    @try {
        body(context);
    } @catch (id thrown) {
        return thrown ? thrown : nothing;
    }
    return (id)0;
}
