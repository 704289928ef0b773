#include "german_locale.h"
#include "number_text.h"
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <doctest/doctest.h>
#include <limits>
#include <random>
#include <vector>

using namespace tessaly;

namespace
{

/// Numbers of every size and sign, the special ones included. The C library, which runs under the C locale here, is the
/// reference.
std::vector<double> ManyNumbers ()
{
    using Limits = std::numeric_limits<double>;
    std::vector<double> numbers;
    for (const double number : { 0.0, 0.5, 1.5, 2.5, 0.125, 9.995, 99999.95, 1e22, 1e23, Limits::max (),
                                 Limits::denorm_min (), Limits::infinity (), Limits::quiet_NaN () })
        numbers.insert (numbers.end (), { number, -number });
    std::mt19937 random (1);
    std::uniform_real_distribution<double> mantissa (-10.0, 10.0), exponent (-12.0, 12.0);
    for (int i = 0; i < 5000; ++i)
        numbers.push_back (mantissa (random) * std::pow (10.0, exponent (random)));
    for (int i = -2000; i < 2000; ++i)
        numbers.push_back (i * 0.005);
    return numbers;
}

} // namespace

TEST_CASE ("FixedText and IntegerText: write what printf writes in the C locale")
{
    std::array<char, 400> expected;
    for (const double number : ManyNumbers ())
        for (const int width : { 0, 5, 10 })
            for (const int precision : { 0, 1, 2, 3 })
            {
                std::snprintf (expected.data (), expected.size (), "%*.*f", width, precision, number);
                REQUIRE (FixedText (number, width, precision) == expected.data ());
            }
    for (const int number : { 0, 7, -7, 42, -42, 1234, -1234, 2147483647, -2147483647 - 1 })
        for (const int width : { 0, 2, 3, 6 })
        {
            std::snprintf (expected.data (), expected.size (), "%*d", width, number);
            REQUIRE (IntegerText (number, width) == expected.data ());
            std::snprintf (expected.data (), expected.size (), "%0*d", width, number);
            REQUIRE (IntegerText (number, width, '0') == expected.data ());
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
    texts.push_back (std::string (400, '9'));
    texts.push_back (std::string (400, '9') + "e-500");
    texts.push_back ("0." + std::string (400, '0') + "1");
    texts.push_back ("0." + std::string (400, '0') + "1e410");
    texts.push_back ("0x0." + std::string (400, '0') + "1p500");
    for (const auto& text : texts)
    {
        CAPTURE (text);
        char* end = nullptr;
        const double expected = std::strtod (text.c_str (), &end);
        const auto number = ParseNumber (text);
        CHECK (number.length == static_cast<std::size_t> (end - text.c_str ()));
        CHECK ((number.value == expected || (std::isnan (number.value) && std::isnan (expected))));
        CHECK (std::signbit (number.value) == std::signbit (expected));
    }
}

TEST_CASE ("Number texts: keep their point where the locale has a comma")
{
    const test::GermanLocale comma;
    std::array<char, 16> shown;
    std::snprintf (shown.data (), shown.size (), "%.1f", 0.5);
    REQUIRE (std::string (shown.data ()) == "0,5");

    CHECK (FixedText (1234.5, 8, 2) == " 1234.50");
    CHECK (ParseNumber ("2.5").value == 2.5);
    CHECK (ParseNumber ("2,5").length == 1);
}
