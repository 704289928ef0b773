#include "parameter_access.h"

#include "public.sdk/source/vst/utility/stringconvert.h"

namespace tessaly::host
{

using namespace Steinberg;

namespace
{

std::string FromString128 (const Vst::String128 text)
{
    return VST3::StringConvert::convert (text, 128);
}

} // namespace

std::vector<ParameterInfo> ParameterAccess::List () const
{
    std::vector<ParameterInfo> list;
    const int32 count = controller.getParameterCount ();
    for (int32 i = 0; i < count; ++i)
    {
        Vst::ParameterInfo info{};
        if (controller.getParameterInfo (i, info) != kResultOk)
            continue;
        list.push_back ({ .id = info.id,
                          .title = FromString128 (info.title),
                          .units = FromString128 (info.units),
                          .stepCount = info.stepCount,
                          .defaultNormalized = info.defaultNormalizedValue,
                          .flags = info.flags });
    }
    return list;
}

double ParameterAccess::Normalized (Vst::ParamID id) const
{
    return controller.getParamNormalized (id);
}

tresult ParameterAccess::SetNormalized (Vst::ParamID id, double normalized) const
{
    return controller.setParamNormalized (id, normalized);
}

double ParameterAccess::ToPlain (Vst::ParamID id, double normalized) const
{
    return controller.normalizedParamToPlain (id, normalized);
}

double ParameterAccess::ToNormalized (Vst::ParamID id, double plain) const
{
    return controller.plainParamToNormalized (id, plain);
}

std::string ParameterAccess::Text (Vst::ParamID id, double normalized) const
{
    Vst::String128 text{};
    if (controller.getParamStringByValue (id, normalized, text) != kResultOk)
        return {};
    return FromString128 (text);
}

std::optional<double> ParameterAccess::FromText (Vst::ParamID id, const std::string& text) const
{
    Vst::String128 wide{};
    Vst::ParamValue normalized = 0.0;
    if (!VST3::StringConvert::convert (text, wide) ||
        controller.getParamValueByString (id, wide, normalized) != kResultOk)
        return std::nullopt;
    return normalized;
}

} // namespace tessaly::host
