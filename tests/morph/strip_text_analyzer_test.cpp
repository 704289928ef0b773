#include "german_locale.h"
#include "strip_text_analyzer.h"
#include <doctest/doctest.h>
#include <optional>
#include <string>

using namespace tessaly;

namespace
{

/// What an analyzer makes of a typed text, in a locale of a decimal comma; nothing when it refuses it.
std::optional<float> Typed (ZTextAnalyzer&& analyzer, std::string text)
{
    const test::GermanLocale comma;
    if (!analyzer.IsValid (text.data ()))
        return std::nullopt;
    return analyzer.ToValue (text.data ());
}

} // namespace

TEST_CASE ("ZTextAnalyzerReal: takes a number with a suffix and nothing else")
{
    CHECK (Typed (ZTextAnalyzerReal (), "1.5k") == 1500.0f);
    CHECK (Typed (ZTextAnalyzerReal (), "2u") == 2e-6f);
    CHECK (Typed (ZTextAnalyzerReal (), " - 1 2 . 5 ") == -12.5f);
    for (const char* refused : { "", "  ", "1x", "1kk", "k", "1K", "1,5", "\t" })
        CHECK (Typed (ZTextAnalyzerReal (), refused) == std::nullopt);
}

TEST_CASE ("ZK2XTextAnalyzer: a typed value becomes the nearest step of its parameter")
{
    constexpr int kSideChainF = 7;
    CHECK (Typed (ZK2XTextAnalyzer (kSideChainF), "2.0k") == 84.0f);
    CHECK (Typed (ZK2XTextAnalyzer (kSideChainF), "1 0 0") == 32.0f);
    CHECK (Typed (ZK2XTextAnalyzer (kSideChainF), "9999999999") == 124.0f);
    CHECK (Typed (ZK2XTextAnalyzer (11), "+1.2.9") == 192.0f); // the number ends at the second point
    CHECK (Typed (ZK2XTextAnalyzer (1), "--5") == 57.0f);      // no digits come first: the low end
    for (const char* refused : { "", "k", "1kk", "1k5", "inf", "1e3", "12Hz", "0x1" })
        CHECK (Typed (ZK2XTextAnalyzer (kSideChainF), refused) == std::nullopt);
}

TEST_CASE ("ZRatioTextAnalyzer: also takes inf in any case, for the last step")
{
    for (const char* infinite : { "inf", "i N f", "600" })
        CHECK (Typed (ZRatioTextAnalyzer (3), infinite) == 120.0f);
    CHECK (Typed (ZRatioTextAnalyzer (3), "4") == 60.0f);
    CHECK (Typed (ZRatioTextAnalyzer (3), "infinity") == std::nullopt);
}
