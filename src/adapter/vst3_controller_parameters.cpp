#include "kvp_parameters.h"
#include "parameter_ids.h"
#include "parameter_storage_base.h"
#include "plugin_config.h"
#include "stored_value.h"
#include "text_conversion.h"
#include "vst3_controller_wrapper.h"
#include <cmath>

// The controller: the parameter list that the host sees, and its texts.

namespace tessaly
{

using namespace Steinberg;

Vst::Parameter* ZVst3ControllerWrapper::getParameterObject (Vst::ParamID id)
{
    return HasEffect () ? EditControllerEx1::getParameterObject (id) : nullptr;
}

void ZVst3ControllerWrapper::SetStorage (ZParameterStorageBase* newStorage)
{
    storage = newStorage;
    BuildParameters ();
}

void ZVst3ControllerWrapper::BuildUnits ()
{
    units.clear ();
    for (std::int32_t i = 0; i < storage->GetUnitCount (); ++i)
    {
        ZUnitRecord record{};
        storage->GetUnit (i, &record);
        if (record.id == 0)
            continue;
        Vst::String128 name{};
        Widen (record.name.data (), name);
        addUnit (new Vst::Unit (name, record.id, record.parentId)); // the controller's list owns it
    }
}

void ZVst3ControllerWrapper::BuildParameters ()
{
    parameters.removeAll ();
    if (storage == nullptr)
        return;
    BuildUnits ();
    // The container owns what is added.
    for (std::int32_t i = 0; i < storage->GetParameterCount (); ++i)
        parameters.addParameter (new KVPParameter (i, storage));
    for (std::int32_t i = 0; i < config::kMeterCount; ++i)
        parameters.addParameter (new KVPVuParameter (i));
    if constexpr (config::kUsesMidi)
    {
        for (std::uint32_t i = 0; i < kMidiNumberCount; ++i)
            parameters.addParameter (new KVPMidiParameter (static_cast<std::int32_t> (i)));
    }
}

void ZVst3ControllerWrapper::UpdateParameters (ZParameterStorageBase* newStorage)
{
    if (newStorage == nullptr)
        return;
    storage = newStorage;
    for (std::int32_t i = 0; i < storage->GetParameterCount (); ++i)
    {
        if (auto* parameter = FCast<KVPParameter> (getParameterObject (static_cast<Vst::ParamID> (i))))
            parameter->SetUp (storage);
    }
    RefreshValues ();
    if (componentHandler)
    {
        componentHandler->restartComponent (Vst::kParamTitlesChanged);
        componentHandler->restartComponent (Vst::kParamValuesChanged);
        setDirty (false);
    }
}

int32 PLUGIN_API ZVst3ControllerWrapper::getParameterCount ()
{
    OnHostCall ();
    return HasEffect () ? EditControllerEx1::getParameterCount () : 0;
}

tresult PLUGIN_API ZVst3ControllerWrapper::getParameterInfo (int32 index, Vst::ParameterInfo& info)
{
    OnHostCall ();
    return HasEffect () ? EditControllerEx1::getParameterInfo (index, info) : kResultFalse;
}

int32 PLUGIN_API ZVst3ControllerWrapper::getUnitCount ()
{
    OnHostCall ();
    return EditControllerEx1::getUnitCount ();
}

tresult PLUGIN_API ZVst3ControllerWrapper::getMidiControllerAssignment (int32, int16, Vst::CtrlNumber controller,
                                                                        Vst::ParamID& id)
{
    OnHostCall ();
    const auto number = static_cast<std::uint32_t> (controller);
    if (!config::kUsesMidi || number >= kMidiNumberCount)
        return kResultFalse;
    id = number + kFirstMidiId;
    return kResultTrue;
}

/// A host's value for a conversion; NaN stands for the present value.
Vst::ParamValue ZVst3ControllerWrapper::Usable (Vst::ParamID id, Vst::ParamValue normalized)
{
    return StoredValue (normalized).value_or (EditControllerEx1::getParamNormalized (id));
}

tresult PLUGIN_API ZVst3ControllerWrapper::getParamStringByValue (Vst::ParamID id, Vst::ParamValue normalized,
                                                                  Vst::String128 text)
{
    OnHostCall ();
    return EditControllerEx1::getParamStringByValue (id, Usable (id, normalized), text);
}

tresult PLUGIN_API ZVst3ControllerWrapper::getParamValueByString (Vst::ParamID id, Vst::TChar* text,
                                                                  Vst::ParamValue& normalized)
{
    OnHostCall ();
    const tresult result = EditControllerEx1::getParamValueByString (id, text, normalized);
    normalized = Usable (id, normalized); // "nan" and "inf" are numbers to a reader of text
    return result;
}

Vst::ParamValue PLUGIN_API ZVst3ControllerWrapper::normalizedParamToPlain (Vst::ParamID id, Vst::ParamValue normalized)
{
    OnHostCall ();
    return EditControllerEx1::normalizedParamToPlain (id, Usable (id, normalized));
}

Vst::ParamValue PLUGIN_API ZVst3ControllerWrapper::plainParamToNormalized (Vst::ParamID id, Vst::ParamValue plain)
{
    OnHostCall ();
    return Usable (id, std::isnan (plain) ? plain : EditControllerEx1::plainParamToNormalized (id, plain));
}

tresult PLUGIN_API ZVst3ControllerWrapper::getXmlRepresentationStream (Vst::RepresentationInfo&, IBStream*)
{
    OnHostCall ();
    return kResultFalse; // the strip offers none
}

tresult PLUGIN_API ZVst3ControllerWrapper::setUnitProgramData (int32, int32, IBStream*)
{
    OnHostCall ();
    return kResultFalse;
}

} // namespace tessaly
