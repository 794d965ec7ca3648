// The two functions of libchromapng.so.
#pragma once

#include <stddef.h>

extern "C" {

// 1 when the bytes were taken.
typedef int (*ChromaWriteBytes)(void* context, const unsigned char* bytes, size_t count);

// Draws an SVG document, `scale` pixels to its unit of length, and hands the PNG file to `write`, piece by piece. 1 when all
// went well; else 0 and why, in English, in `message`.
__attribute__((visibility("default"))) int chromaDrawPNG(const char* svg, size_t length, double scale,
                                                         ChromaWriteBytes write, void* context, char* message,
                                                         size_t messageSize);

// How far what an SVG document draws reaches to the right of its origin, in its unit of length. 1 and the length in `right`
// when all went well; else 0 and why.
__attribute__((visibility("default"))) int chromaMeasureSVG(const char* svg, size_t length, double* right, char* message,
                                                            size_t messageSize);
}
