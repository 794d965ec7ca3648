// Native objects that count their end, for tests of when autoreleased ones go.
#pragma once

// Makes one and autoreleases it.
void autoreleaseNative();

// How many have gone in this process.
int nativesGone();
