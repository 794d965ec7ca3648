// A library with an initialiser that its loader must call. The translator calls no code of a library, so it refuses this
// one.
static volatile int calls;
__attribute__((constructor)) static void initialise() { calls = 1; }
