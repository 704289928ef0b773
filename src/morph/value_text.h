#pragma once

#include "generic_converter_sets.h"

namespace tessaly::converters
{

// The strip's converter sets: a plain value is a step, its text the value that the engine makes of that step. Formats
// are the `printf` ones of the C locale under every locale; a step outside a scale's table reads as the value 0.

extern const ZConverterSet drive;       // %5.2f, 0 to 10
extern const ZConverterSet attack;      // ms: %5.3f below 10, else %5.2f
extern const ZConverterSet release;     // ms: %5.1f
extern const ZConverterSet ratio;       // %4.2f below 10, %4.1f below 100, %4.0f below 1000, else " INF"
extern const ZConverterSet driveOffset; // %6.3f, 0 to 1, with 0.5 for 0 dB
extern const ZConverterSet makeup;      // %6.3f, 0 to 1
extern const ZConverterSet frequency;   // Hz: %5.1f below 1000; kHz: %5.2fk below 10, else %5.1fk
extern const ZConverterSet gain;        // dB: %5.1f
extern const ZConverterSet q;           // %5.2f
extern const ZConverterSet morph;       // %d, the position itself
extern const ZConverterSet hundredths;  // %.2f
extern const ZConverterSet wholeDb;     // %ddB

/// Of list and bool parameters, whose text comes from their entries.
inline const ZConverterSet& plain = genericConverterSets.front ();

} // namespace tessaly::converters
