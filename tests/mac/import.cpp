extern "C" void CHROMA_IMPORT(const void* object);
extern "C" __attribute__((visibility("default"))) void release(const void* object) { CHROMA_IMPORT(object); }
