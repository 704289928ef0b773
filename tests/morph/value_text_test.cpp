#include "german_locale.h"
#include "text_buffer.h"
#include "value_text.h"
#include <array>
#include <cmath>
#include <cstdio>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

std::string Shown (const ZConverterSet& set, float plain)
{
    std::array<char, kTextSize> buffer;
    set.toText (plain, buffer.data ());
    return buffer.data ();
}

/// As the C library writes it, which runs under the C locale here.
template <typename Number>
std::string Printed (const char* format, Number number)
{
    std::array<char, 400> buffer;
    std::snprintf (buffer.data (), buffer.size (), format, number);
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
    CHECK (Shown (converters::ratio, 85) == "9.50");
    CHECK (Shown (converters::ratio, 86) == "10.0");
    CHECK (Shown (converters::ratio, 120) == " INF");
    CHECK (Shown (makeup, 1) == " 0.005");
    CHECK (Shown (frequency, 72) == " 1.00k");
    CHECK (Shown (frequency, 111) == " 9.50k");
    CHECK (Shown (frequency, 112) == " 10.0k");
    CHECK (Shown (gain, -0.99f) == "-18.0");
    CHECK (Shown (converters::hundredths, 7) == "0.07");
    CHECK (Shown (wholeDb, -12.9f) == "-12dB");
}

TEST_CASE ("Value text: no plain value breaks a text")
{
    for (const float plain : { 3e38f, -3e38f, HUGE_VALF, -HUGE_VALF, std::nanf ("") })
        for (const auto* set : { &converters::drive, &converters::attack, &converters::ratio, &converters::frequency,
                                 &converters::morph, &converters::wholeDb, &converters::plain })
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

TEST_CASE ("Generic sets: read as printf would write them")
{
    const auto& sets = genericConverterSets;
    constexpr std::array kFixed{ "%10.3f", "%10.2f", "%6.2f", "%5.3f", "%5.2f", "%5.1f" };
    for (float plain = -60.0f; plain < 60.0f; plain += 0.37f)
    {
        CAPTURE (plain);
        const auto whole = static_cast<int> (plain);
        for (std::size_t i = 0; i < kFixed.size (); ++i)
            CHECK (Shown (sets[i], plain) == Printed (kFixed[i], static_cast<double> (plain)));
        CHECK (Shown (sets[6], plain) == Printed ("%d", whole));
        CHECK (Shown (sets[7], plain) == Printed ("%03d", whole));
        CHECK (Shown (sets[8], plain) == Printed ("%2d", whole));
        CHECK (Shown (sets[14], plain) == Printed ("%5.2f", plain * 10.0));
        CHECK (Shown (sets[15], plain) == Printed ("%5.2f", plain * 9.0 + 1.0));
    }
    CHECK (Shown (sets[9], 70000.9f) == "70000");
    CHECK (Shown (sets[6], 65535.0f) == "-1");
    CHECK (Shown (sets[17], -54.0f) == "[]");
    CHECK (Shown (sets[17], -53.5f) == "   -53.500");
}

TEST_CASE ("Generic sets: plain and normalized are each other's inverse, ends on ends")
{
    for (std::size_t i = 0; i < genericConverterSets.size (); ++i)
    {
        CAPTURE (i);
        const auto& set = genericConverterSets[i];
        const float high = i == 16 ? 10.0f : 20000.0f; // one has a range of its own, 0.1 to 10
        CHECK (set.toPlain (1.0f, 20.0f, high) == doctest::Approx (high));
        CHECK (set.toNormalized (set.toPlain (0.4f, 20.0f, high), 20.0f, high) == doctest::Approx (0.4).epsilon (1e-4));
    }
    CHECK (genericConverterSets[10].toPlain (0.5f, 10.0f, 1000.0f) == doctest::Approx (100.0)); // the geometric mean
    CHECK (genericConverterSets[18].toPlain (0.25f, 1.0f, std::exp (1.0f)) ==
           doctest::Approx (std::exp (std::pow (0.25, 0.65))));
}

TEST_CASE ("Value text: keeps its point where the locale has a comma")
{
    const test::GermanLocale comma;
    CHECK (Shown (converters::attack, 221) == "12.49");
    CHECK (Shown (genericConverterSets[0], 1234.5f) == "  1234.500");
}
