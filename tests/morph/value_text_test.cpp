#include "german_locale.h"
#include "text_buffer.h"
#include "value_text.h"
#include <array>
#include <cmath>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

/// Under a locale with a decimal comma, which no text may show.
std::string Shown (const ZConverterSet& set, float plain)
{
    const test::GermanLocale comma;
    std::array<char, kTextSize> buffer;
    set.toText (plain, buffer.data ());
    return buffer.data ();
}

} // namespace

TEST_CASE ("Value text: the edges of every scale read as the panel shows them")
{
    using namespace converters;
    CHECK (Shown (drive, 1) == " 0.05");
    CHECK (Shown (attack, 214.99f) == "10.12"); // a step counts as far as it is whole
    CHECK (Shown (attack, 284) == "0.000");     // beyond the scale
    CHECK (Shown (converters::release, 24) == "  9.3");
    CHECK (Shown (converters::ratio, 86) == "10.0");
    CHECK (Shown (converters::ratio, 120) == " INF");
    CHECK (Shown (converters::driveOffset, 100) == " 0.500");
    CHECK (Shown (makeup, 1) == " 0.005");
    CHECK (Shown (frequency, 111) == " 9.50k");
    CHECK (Shown (frequency, 112) == " 10.0k");
    CHECK (Shown (gain, -0.99f) == "-18.0");
    CHECK (Shown (converters::hundredths, 7) == "0.07");
    CHECK (Shown (wholeDb, -12.9f) == "-12dB");
    for (const float plain : { 3e38f, -3e38f, HUGE_VALF, -HUGE_VALF, std::nanf ("") })
        for (const auto* set : { &drive, &attack, &ratio, &frequency, &converters::morph, &wholeDb })
            CHECK_FALSE (Shown (*set, plain).empty ());
}

TEST_CASE ("Value text: a normalized value becomes the nearest whole step, half away from zero")
{
    const auto& set = converters::drive;
    CHECK (set.toPlain (0.5f, 0.0f, 5.0f) == 3.0f); // 2.5
    CHECK (set.toPlain (0.5f, -5.0f, 0.0f) == -3.0f);
    CHECK (set.toPlain (0.0f, 2.9f, 9.0f) == 2.0f);      // exactly 0 truncates
    CHECK (set.toPlain (1.0f, 0.0f, 65535.0f) == -1.0f); // 16 bits
}

TEST_CASE ("Generic sets: each has its format, and plain and normalized are each other's inverse, ends on ends")
{
    const auto& sets = genericConverterSets;
    const std::array<const char*, 20> texts{ "   -12.346", "    -12.35", "-12.35",     "-12.346",    "-12.35",
                                             "-12.3",      "-12",        "-12",        "-12",        "-12",
                                             "   -12.346", "-12.35",     "-12.35",     "    -12.35", "-123.46",
                                             "-110.11",    "-12.35",     "   -12.346", "-12.35",     "-12.35" };
    for (std::size_t i = 0; i < sets.size (); ++i)
    {
        CAPTURE (i);
        CHECK (Shown (sets[i], -12.3456f) == texts[i]);
        const float high = i == 16 ? 10.0f : 20000.0f; // one has a range of its own, 0.1 to 10
        CHECK (sets[i].toPlain (1.0f, 20.0f, high) == doctest::Approx (high));
        CHECK (sets[i].toNormalized (sets[i].toPlain (0.4f, 20.0f, high), 20.0f, high) ==
               doctest::Approx (0.4).epsilon (1e-4));
    }
    CHECK (Shown (sets[7], 7.0f) == "007");
    CHECK (Shown (sets[17], -54.0f) == "[]");
    CHECK (sets[10].toPlain (0.5f, 10.0f, 1000.0f) == doctest::Approx (100.0)); // the geometric mean
}
