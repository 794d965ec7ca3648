// The two functions of libchromapng.so.
#pragma once

#include <stddef.h>

extern "C" {

// Returns 1 if the bytes were written.
typedef int (*ChromaWriteBytes)(void* context, const unsigned char* bytes, size_t count);

// Draws an SVG document with `scale` pixels per unit of length, and passes the PNG file to `write` piece by piece. Returns
// 1 on success. Otherwise returns 0 and writes the reason, in English, to `message`.
__attribute__((visibility("default"))) int chromaDrawPNG(const char* svg, size_t length, double scale,
                                                         ChromaWriteBytes write, void* context, char* message,
                                                         size_t messageSize);

// Measures how far the drawing of an SVG document extends to the right of its origin, in the document's unit of length.
// Returns 1 and stores the length in `right` on success. Otherwise returns 0 and writes the reason to `message`.
__attribute__((visibility("default"))) int chromaMeasureSVG(const char* svg, size_t length, double* right, char* message,
                                                            size_t messageSize);
}
