#include "german_locale.h"
#include "strip_text_analyzer.h"
#include <doctest/doctest.h>
#include <optional>
#include <string>

using namespace tessaly;

namespace
{

/// What an analyzer makes of a typed text; nothing when it refuses it.
std::optional<float> Typed (ZTextAnalyzer& analyzer, std::string text)
{
    if (!analyzer.IsValid (text.data ()))
        return std::nullopt;
    return analyzer.ToValue (text.data ());
}

} // namespace

TEST_CASE ("ZTextAnalyzerReal: takes a number with a suffix and nothing else")
{
    ZTextAnalyzerReal real;
    CHECK (Typed (real, "1.5k") == 1500.0f);
    CHECK (Typed (real, "2u") == 2e-6f);
    CHECK (Typed (real, " - 1 2 . 5 ") == -12.5f);
    CHECK (Typed (real, "1e3") == 1000.0f);
    for (const char* refused : { "", "  ", "1x", "1kk", "k", "1K", "1,5", "\t" })
        CHECK (Typed (real, refused) == std::nullopt);
}

TEST_CASE ("ZK2XTextAnalyzer: a typed value becomes the nearest step of its parameter")
{
    ZK2XTextAnalyzer sideChain (7), gain (11), attack (1);
    CHECK (Typed (sideChain, "2k") == 84.0f);
    CHECK (Typed (sideChain, "1 0 0") == 32.0f);
    CHECK (Typed (sideChain, "9999999999") == 124.0f);
    CHECK (Typed (gain, "+1.2.9") == 192.0f); // the number ends at the second point
    CHECK (Typed (attack, "--5") == 57.0f);   // no number at all: the low end
    for (const char* refused : { "", "k", "1kk", "1k5", "inf", "1e3", "12Hz", "0x1" })
        CHECK (Typed (sideChain, refused) == std::nullopt);
}

TEST_CASE ("ZRatioTextAnalyzer: also takes inf in any case, for the last step")
{
    ZRatioTextAnalyzer ratio (3);
    for (const char* infinite : { "inf", "INF", "i N f", "600" })
        CHECK (Typed (ratio, infinite) == 120.0f);
    CHECK (Typed (ratio, "4") == 60.0f);
    for (const char* refused : { "infinity", "in", "", "nan" })
        CHECK (Typed (ratio, refused) == std::nullopt);
}

TEST_CASE ("Text analyzers: read a point where the locale has a comma")
{
    const test::GermanLocale comma;
    ZTextAnalyzerReal real;
    CHECK (Typed (real, "1.5k") == 1500.0f);
    CHECK (Typed (real, "1,5") == std::nullopt);
    ZK2XTextAnalyzer gain (11);
    CHECK (Typed (gain, "1.5") == 195.0f);
}
