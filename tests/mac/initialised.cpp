// A library whose loader has to call it: the translator, whose code nobody calls, refuses it.
static volatile int calls;
__attribute__((constructor)) static void initialise() { calls = 1; }
