// Functions of the language that compute with numbers. They are bound functions; what is wrong is recorded as the pending
// exception. Doubles outside of what a function is defined for give no number, as division does, and raise nothing.
#pragma once

#include "values/values.h"

namespace host::language::mathematics {

double round(double value); // halves go away from 0
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

// Random numbers come from std::mt19937_64, seeded by the system until a program seeds it. What a seed gives is the same on
// every machine: a Double is the upper 53 bits of the next number, divided by 2^53; an integer of a range of n is the next
// number below the greatest multiple of n, modulo n, above the range's first.
void seedRandom(HostInteger seed);                              // sign-extended to 64 bits
double randomReal();                                            // from 0 on, below 1
HostInteger randomInRange(HostInteger first, HostInteger last); // both included; raises when `last` is smaller

} // namespace host::language::mathematics
