// The parts of this system header that libc++ uses, so that tests which include <locale> can be checked without it.
#pragma once

#include <locale.h>

#ifdef __cplusplus
extern "C" {
#endif
#if _LIBCPP_VERSION < 190000 // which defines these two itself
long long strtoll_l(const char* text, char** end, int base, locale_t locale);
unsigned long long strtoull_l(const char* text, char** end, int base, locale_t locale);
#endif
int sscanf_l(const char* text, locale_t locale, const char* format, ...);
int snprintf_l(char* text, unsigned long size, locale_t locale, const char* format, ...);
int asprintf_l(char** text, locale_t locale, const char* format, ...);
#ifdef __cplusplus
}
#endif
