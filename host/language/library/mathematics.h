// Functions of the language that compute with numbers. They are bound functions; an error is recorded as the pending
// exception. For a Double outside its domain a function returns not-a-number, as division does, and raises nothing.
#pragma once

#include "values/values.h"

namespace host::language::mathematics {

double round(double value); // halves are rounded away from 0
double floor(double value);
double ceil(double value);
double squareRoot(double value);
HostInteger absolute(HostInteger value);
double absolute(double value);
HostInteger lesser(HostInteger a, HostInteger b);
double lesser(double a, double b);
HostInteger greater(HostInteger a, HostInteger b);
double greater(double a, double b);

// Angles are in radians.
double pi();
double sine(double angle);
double cosine(double angle);
double tangent(double angle);
double arcSine(double value);
double arcCosine(double value);
double arcTangent(double value);
double angleOf(double y, double x);
double exponential(double value);
double logarithm(double value); // natural
double decimalLogarithm(double value);

// Random numbers come from std::mt19937_64, seeded by the system until a program seeds it. A seed produces the same numbers
// on every machine. A Double is the upper 53 bits of the next number, divided by 2^53. For an integer from a range of n
// values, numbers from the greatest multiple of n on are skipped. The result is the next number modulo n, plus the first
// value of the range.
void seedRandom(HostInteger seed);                              // sign-extended to 64 bits
double randomReal();                                            // at least 0, below 1
HostInteger randomInRange(HostInteger first, HostInteger last); // both included; raises if `last` is smaller

} // namespace host::language::mathematics
