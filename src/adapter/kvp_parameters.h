#pragma once

#include "public.sdk/source/vst/vstparameters.h"
#include <cstdint>

namespace tessaly
{

class ZParameterStorageBase;

/// A parameter object that tells nobody of its changes. The SDK's own does, under a lock, and nobody listens.
class QuietParameter : public Steinberg::Vst::Parameter
{
public:
    using Parameter::Parameter;
    bool setNormalized (Steinberg::Vst::ParamValue value) override; ///< @return whether it changed
};

/// A host's view onto one parameter of the storage: title, unit, kind, default and all conversions come from there.
/// The storage is not owned: the effect's; the controller removes these objects before it lets go of the effect.
class KVPParameter final : public QuietParameter
{
public:
    /// Starts at the storage's default value of parameter `index`.
    KVPParameter (std::int32_t index, const ZParameterStorageBase* storage);

    /// Takes everything from `storage` anew, the value too: it goes to the default.
    void SetUp (const ZParameterStorageBase* storage);

    void toString (Steinberg::Vst::ParamValue normalized, Steinberg::Vst::String128 text) const override;
    bool fromString (const Steinberg::Vst::TChar* text, Steinberg::Vst::ParamValue& normalized) const override;
    Steinberg::Vst::ParamValue toPlain (Steinberg::Vst::ParamValue normalized) const override;
    Steinberg::Vst::ParamValue toNormalized (Steinberg::Vst::ParamValue plain) const override;

    OBJ_METHODS (KVPParameter, Steinberg::Vst::Parameter)

private:
    std::int32_t index;
    const ZParameterStorageBase* storage = nullptr; // not owned: the effect
};

/// A read-only meter, id kFirstMeterId + `meter`.
class KVPVuParameter final : public QuietParameter
{
public:
    explicit KVPVuParameter (std::int32_t meter);
    OBJ_METHODS (KVPVuParameter, Steinberg::Vst::Parameter)
};

/// A read-only MIDI controller, id kFirstMidiId + `number`.
class KVPMidiParameter final : public QuietParameter
{
public:
    explicit KVPMidiParameter (std::int32_t number);
    OBJ_METHODS (KVPMidiParameter, Steinberg::Vst::Parameter)
};

} // namespace tessaly
