#pragma once

#include "pluginterfaces/vst/ivsteditcontroller.h"

#include <optional>
#include <string>
#include <vector>

namespace tessaly::host
{

/// One parameter as the controller describes it, texts in UTF-8.
struct ParameterInfo
{
    Steinberg::Vst::ParamID id = Steinberg::Vst::kNoParamId;
    std::string title;              ///< may be empty
    std::string units;              ///< may be empty
    Steinberg::int32 stepCount = 0; ///< 0 continuous, 1 a switch, otherwise a list's last index
    double defaultNormalized = 0.0;
    Steinberg::int32 flags = 0; ///< Vst::ParameterInfo::ParameterFlags

    bool IsReadOnly () const { return (flags & Steinberg::Vst::ParameterInfo::kIsReadOnly) != 0; }
};

/// The parameters of a controller in the language of C++ rather than of the SDK. Main thread.
class ParameterAccess
{
public:
    /// @param of  not owned: the plug-in instance, outlives this object
    explicit ParameterAccess (Steinberg::Vst::IEditController& of)
        : controller (of)
    {
    }

    std::vector<ParameterInfo> List () const;

    double Normalized (Steinberg::Vst::ParamID id) const;

    /// @return the controller's own answer, kResultOk when it took the value
    Steinberg::tresult SetNormalized (Steinberg::Vst::ParamID id, double normalized) const;

    double ToPlain (Steinberg::Vst::ParamID id, double normalized) const;
    double ToNormalized (Steinberg::Vst::ParamID id, double plain) const;

    /// @return the text as it comes, blanks included; empty when the controller has none
    std::string Text (Steinberg::Vst::ParamID id, double normalized) const;

    /// @return the normalized value, or nothing when the controller refuses the text
    std::optional<double> FromText (Steinberg::Vst::ParamID id, const std::string& text) const;

private:
    Steinberg::Vst::IEditController& controller; // not owned: the plug-in instance's
};

} // namespace tessaly::host
