#pragma once

#include "text_analyzer.h"
#include <cstdint>

namespace tessaly
{

/// A value of one of the strip's parameters, in the unit that its text shows, with the suffix k or K or none. ToValue
/// gives the nearest step of the parameter's scale. Signs and points may stand anywhere: the number ends where it ends.
/// The scales belong to no instance, so no strip is needed.
class ZK2XTextAnalyzer : public ZTextAnalyzerReal
{
public:
    explicit ZK2XTextAnalyzer (std::uint32_t parameter)
        : parameterIndex (parameter)
    {
    }
    bool IsValid (char* text) override;
    float ToValue (const char* text) override;

protected:
    std::uint32_t parameterIndex;
};

/// The same for "Ratio", which may also be "inf": IsValid turns it to upper case, ToValue gives the last step.
class ZRatioTextAnalyzer : public ZK2XTextAnalyzer
{
public:
    using ZK2XTextAnalyzer::ZK2XTextAnalyzer;
    bool IsValid (char* text) override;
    float ToValue (const char* text) override;
};

} // namespace tessaly
