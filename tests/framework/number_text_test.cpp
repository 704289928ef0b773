#include "german_locale.h"
#include "number_text.h"
#include <array>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <doctest/doctest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace tessaly;

namespace
{

/// Numbers of every size and sign, halves and the special ones included.
std::vector<double> ManyNumbers ()
{
    std::vector<double> numbers{ 0.0, 9.995, 99999.95, 1e22, 1e23, DBL_MAX, HUGE_VAL, std::nan ("") };
    for (double number = 1e-12; number < 1e12; number *= 1.009)
        numbers.push_back (number);
    for (double number = 0.0; number < 10.0; number += 0.125)
        numbers.push_back (number);
    return numbers;
}

} // namespace

// The C library, which runs under the C locale here, is the reference.

TEST_CASE ("FixedText and IntegerText: write what printf writes in the C locale")
{
    std::array<char, 400> expected;
    for (const double magnitude : ManyNumbers ())
        for (const double number : { magnitude, -magnitude })
            for (const auto& [width, precision] : { std::pair{ 0, 0 }, { 5, 1 }, { 5, 2 }, { 10, 3 } })
            {
                std::snprintf (expected.data (), expected.size (), "%*.*f", width, precision, number);
                if (!std::isnan (number)) // its sign is written by some libraries only
                    REQUIRE (FixedText (number, width, precision) == expected.data ());
            }
    CHECK (FixedText (std::numeric_limits<double>::quiet_NaN (), 5, 1) == "  nan");
    for (const int number : { 0, -7, 42, -1234, 2147483647, -2147483647 - 1 })
    {
        std::snprintf (expected.data (), expected.size (), "%3d", number);
        CHECK (IntegerText (number, 3) == expected.data ());
        std::snprintf (expected.data (), expected.size (), "%03d", number);
        CHECK (IntegerText (number, 3, '0') == expected.data ());
    }
}

TEST_CASE ("ParseNumber: takes as much of a text as strtod does, and the same value")
{
    // clang-format off
    std::vector<std::string> texts {
        "", " ", "+", "-", "1", "+1", "-1", "+-1", "-+1", "--1", " \t\n\v\f\r-2.5x", "1.5k", ".5", "5.", ".", "-.e1",
        "1e3", "1e", "1e+", "1e-2", "1E+2", "1.2.3", "1,5", "12 34", "0x", "0x1p3", "0X.8", "0x.", "0x1.8p", "0xg",
        "0x-1", "-0x10", "inf", "-INF", "infinity", "infinit", "nan", "-nan", "nan(1)", "nan(", "in", "1e400", "-1e400",
        "1e-400", "-1e-400", "1e99999999999999999999", "0e99999", "0x1p99999", "0x1p-99999", "4.9e-324", "1e-310"
    };
    // clang-format on
    const std::string nines (400, '9');
    const auto zeros = "0." + std::string (400, '0');
    texts.insert (texts.end (), { nines, nines + "e-500", zeros + "1", zeros + "1e410", "0x" + zeros + "1p500" });
    for (const auto& text : texts)
    {
        CAPTURE (text);
        char* end = nullptr;
        const double expected = std::strtod (text.c_str (), &end);
        const auto number = ParseNumber (text);
        CHECK (number.length == static_cast<std::size_t> (end - text.c_str ()));
        CHECK ((number.value == expected || (std::isnan (number.value) && std::isnan (expected))));
        if (number.length != 0) // otherwise libraries differ
            CHECK (std::signbit (number.value) == std::signbit (expected));
    }
}

TEST_CASE ("Number texts: keep their point where the locale has a comma")
{
    const test::GermanLocale comma;
    CHECK (FixedText (1234.5, 8, 2) == " 1234.50");
    CHECK (ParseNumber ("2.5").value == 2.5);
    CHECK (ParseNumber ("2,5").length == 1);
}
