#pragma once

namespace tessaly
{

// The conversions that most converter sets share. In double precision, rounded to float at the end; no range check.

/// (p - minimum) / (maximum - minimum)
float linearToNormalized (float plain, float minimum, float maximum);

/// minimum + n * (maximum - minimum)
float linearToPlain (float normalized, float minimum, float maximum);

/// linearToPlain to the nearest whole number, halves away from zero; truncated for n exactly 0. Kept in 16 bits.
float steppedToPlain (float normalized, float minimum, float maximum);

/// linearToPlain to the nearest whole number, halves away from zero.
float roundedToPlain (float normalized, float minimum, float maximum);

} // namespace tessaly
