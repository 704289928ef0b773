#include "kvp_parameters.h"

#include "parameter_ids.h"
#include "parameter_storage_base.h"
#include "strip_parameter.h"
#include "text_conversion.h"
#include <algorithm>
#include <utility>

namespace tessaly
{

using namespace Steinberg;

namespace
{

constexpr std::int32_t kTextLength = kTextSize - 1;

std::int32_t StepCount (const ZParameterStorageBase& storage, std::int32_t index)
{
    switch (storage.GetType (index))
    {
    case kList:
        return storage.GetListCount (index) - 1;
    case kBool:
        return 1;
    default:
        return 0;
    }
}

std::int32_t HostFlags (std::int32_t storageFlags)
{
    std::int32_t flags = Vst::ParameterInfo::kCanAutomate;
    if (storageFlags & kNotAutomatable)
        flags &= ~Vst::ParameterInfo::kCanAutomate;
    if (storageFlags & kIsBypass)
        flags |= Vst::ParameterInfo::kIsBypass;
    return flags;
}

/// Hosts and the SDK's checks want a title for everything, but two parameters have no name: the key points move them,
/// and the panel has no control for them.
const char* TitleOfUnnamed (std::int32_t index)
{
    switch (static_cast<StripParameter> (index))
    {
    case StripParameter::driveOffset:
        return "Drive Offset";
    case StripParameter::makeupAmount:
        return "Makeup Amount";
    default:
        return "Unnamed";
    }
}

} // namespace

bool QuietParameter::setNormalized (Vst::ParamValue value)
{
    const auto before = std::exchange (valueNormalized, std::clamp (value, 0.0, 1.0));
    return valueNormalized != before;
}

KVPParameter::KVPParameter (std::int32_t parameterIndex, const ZParameterStorageBase* parameterStorage)
    : index (parameterIndex)
{
    SetUp (parameterStorage);
}

void KVPParameter::SetUp (const ZParameterStorageBase* newStorage)
{
    storage = newStorage;
    ZText text{};
    storage->GetName (index, text.data (), kTextLength);
    Widen (text[0] != 0 ? text.data () : TitleOfUnnamed (index), info.title);
    text.fill (0);
    storage->GetUnits (index, text.data (), kTextLength);
    Widen (text.data (), info.units);
    info.id = static_cast<Vst::ParamID> (index);
    info.flags = HostFlags (storage->GetFlags (index));
    info.stepCount = StepCount (*storage, index);
    info.defaultNormalizedValue = static_cast<double> (storage->GetDefaultNormalized (index));
    info.unitId = storage->GetUnitId (index);
    setNormalized (info.defaultNormalizedValue);
}

void KVPParameter::toString (Vst::ParamValue normalized, Vst::String128 text) const
{
    ZText narrow{};
    storage->NormalizedToText (index, static_cast<float> (normalized), narrow.data (), kTextLength);
    Widen (narrow.data (), text);
}

bool KVPParameter::fromString (const Vst::TChar* text, Vst::ParamValue& normalized) const
{
    ZText narrow{};
    Narrow (text, narrow);
    float value = static_cast<float> (normalized);
    const bool isNumber = storage->TextToNormalized (index, narrow.data (), &value);
    normalized = static_cast<double> (value);
    return isNumber;
}

Vst::ParamValue KVPParameter::toPlain (Vst::ParamValue normalized) const
{
    return static_cast<double> (storage->NormalizedToPlain (index, static_cast<float> (normalized)));
}

Vst::ParamValue KVPParameter::toNormalized (Vst::ParamValue plain) const
{
    return static_cast<double> (storage->PlainToNormalized (index, static_cast<float> (plain)));
}

KVPVuParameter::KVPVuParameter (std::int32_t meter)
    : QuietParameter (STR16 ("VU"), kFirstMeterId + static_cast<std::uint32_t> (meter), nullptr, 0.0, 0,
                      Vst::ParameterInfo::kIsReadOnly)
{
}

KVPMidiParameter::KVPMidiParameter (std::int32_t number)
    : QuietParameter (STR16 ("MIDI"), kFirstMidiId + static_cast<std::uint32_t> (number), nullptr, 0.0, 0,
                      Vst::ParameterInfo::kIsReadOnly)
{
}

} // namespace tessaly
