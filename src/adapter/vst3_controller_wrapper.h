#pragma once

#include "edit_brackets.h"
#include "host_timer.h"
#include "kvp_factory.h"
#include "pluginterfaces/vst/ivstmidicontrollers.h"
#include "pluginterfaces/vst/ivstrepresentation.h"
#include "public.sdk/source/vst/vsteditcontroller.h"
#include "vu_buffer.h"
#include <thread>
#include <vector>

namespace tessaly
{

/// The controller half of the plug-in. It has no parameter model of its own: its parameter objects are views onto the
/// storage of the effect, whose pointer the processor of the same process sends. A change goes straight into the shared
/// effect, so this is the main road by which values reach the engine.
///
/// A normalized value that a host hands in counts as the nearest end beyond 0 to 1. What is no number is refused when
/// it is to be set, and otherwise stands for the parameter's present value; so no answer here is one that is no number.
///
/// Host's user-interface thread. Hosts without a run loop never call the timer; what is to happen by time is
/// looked at on the calls that hosts make on that thread.
class ZVst3ControllerWrapper final : public Steinberg::Vst::EditControllerEx1,
                                     public Steinberg::Vst::IMidiMapping,
                                     public Steinberg::Vst::IXmlRepresentationController,
                                     private EditHost
{
public:
    ZVst3ControllerWrapper ();

    /// Create function of the class factory.
    static Steinberg::FUnknown* CreateInstance (void* context);

    // IPluginBase
    Steinberg::tresult PLUGIN_API initialize (Steinberg::FUnknown* context) override;
    Steinberg::tresult PLUGIN_API terminate () override;

    // IConnectionPoint
    Steinberg::tresult PLUGIN_API connect (Steinberg::Vst::IConnectionPoint* peer) override;
    Steinberg::tresult PLUGIN_API disconnect (Steinberg::Vst::IConnectionPoint* peer) override;
    Steinberg::tresult PLUGIN_API notify (Steinberg::Vst::IMessage* message) override;

    // IEditController
    Steinberg::tresult PLUGIN_API setComponentState (Steinberg::IBStream* state) override;
    Steinberg::tresult PLUGIN_API setState (Steinberg::IBStream* state) override;
    Steinberg::tresult PLUGIN_API getState (Steinberg::IBStream* state) override;
    Steinberg::int32 PLUGIN_API getParameterCount () override;
    Steinberg::tresult PLUGIN_API getParameterInfo (Steinberg::int32 index,
                                                    Steinberg::Vst::ParameterInfo& info) override;
    Steinberg::tresult PLUGIN_API getParamStringByValue (Steinberg::Vst::ParamID id,
                                                         Steinberg::Vst::ParamValue normalized,
                                                         Steinberg::Vst::String128 text) override;
    Steinberg::tresult PLUGIN_API getParamValueByString (Steinberg::Vst::ParamID id, Steinberg::Vst::TChar* text,
                                                         Steinberg::Vst::ParamValue& normalized) override;
    Steinberg::Vst::ParamValue PLUGIN_API normalizedParamToPlain (Steinberg::Vst::ParamID id,
                                                                  Steinberg::Vst::ParamValue normalized) override;
    Steinberg::Vst::ParamValue PLUGIN_API plainParamToNormalized (Steinberg::Vst::ParamID id,
                                                                  Steinberg::Vst::ParamValue plain) override;
    Steinberg::tresult PLUGIN_API setComponentHandler (Steinberg::Vst::IComponentHandler* handler) override;
    Steinberg::Vst::ParamValue PLUGIN_API getParamNormalized (Steinberg::Vst::ParamID id) override;
    Steinberg::tresult PLUGIN_API setParamNormalized (Steinberg::Vst::ParamID id,
                                                      Steinberg::Vst::ParamValue value) override;

    // IMidiMapping
    Steinberg::tresult PLUGIN_API getMidiControllerAssignment (Steinberg::int32 bus, Steinberg::int16 channel,
                                                               Steinberg::Vst::CtrlNumber controller,
                                                               Steinberg::Vst::ParamID& id) override;

    // IXmlRepresentationController
    Steinberg::tresult PLUGIN_API getXmlRepresentationStream (Steinberg::Vst::RepresentationInfo& info,
                                                              Steinberg::IBStream* stream) override;

    // IUnitInfo
    Steinberg::int32 PLUGIN_API getUnitCount () override;
    Steinberg::tresult PLUGIN_API setUnitProgramData (Steinberg::int32 listOrUnitId, Steinberg::int32 programIndex,
                                                      Steinberg::IBStream* data) override;

    // For the editor
    /// Sets a value as the user does and reports it to the host.
    void SetParameterFromEditor (Steinberg::Vst::ParamID id, float value);
    void BeginHeldEdit (Steinberg::Vst::ParamID id);
    void EndHeldEdit (Steinberg::Vst::ParamID id);
    void EndAllHeldEdits ();
    void BeginTimedEdit (Steinberg::Vst::ParamID id);
    void EndTimedEdit (Steinberg::Vst::ParamID id);
    void EndAllTimedEdits ();
    bool IsActive () const { return active; }
    /// Reports the storage's value of parameter `index`, or of all that differ for -1, after a change by a side door.
    void SyncParameter (std::int32_t index);
    bool QueryEffect (std::int32_t kind, void* out);
    /// `EffectCode` kinds; the meter buffer is the controller's own, the rest is the effect's.
    bool GetInfo (std::int32_t kind, void* out);

    OBJ_METHODS (ZVst3ControllerWrapper, Steinberg::Vst::EditControllerEx1)
    DEFINE_INTERFACES
    DEF_INTERFACE (Steinberg::Vst::IMidiMapping)
    DEF_INTERFACE (Steinberg::Vst::IXmlRepresentationController)
    END_DEFINE_INTERFACES (Steinberg::Vst::EditControllerEx1)
    REFCOUNT_METHODS (Steinberg::Vst::EditControllerEx1)

private:
    void BeginHostEdit (std::uint32_t id) override { beginEdit (id); }
    void EndHostEdit (std::uint32_t id) override { endEdit (id); }

    bool OnEffectMessage (Steinberg::Vst::IMessage& message);
    void Attach (ZEffect* newEffect); ///< null detaches
    void SetEffect (ZEffect* newEffect);
    void SetStorage (ZParameterStorageBase* newStorage);
    void BuildUnits ();
    void BuildParameters ();
    void UpdateParameters (ZParameterStorageBase* newStorage);
    void RefreshValues ();
    Steinberg::Vst::ParamValue Usable (Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue normalized);
    Steinberg::tresult ReportSideEffects (Steinberg::Vst::ParamID id, float value);
    void ReportToHost (std::int32_t index, float value);
    void EndAllEdits ();
    void OnHostCall ();

    FactoryReference factory;
    ZVuBuffer vuBuffer;                       ///< the meters of the host's parameter feed
    ZEffect* effect = nullptr;                // not owned: the processor; null while not connected
    std::uint64_t effectLife = 0;             ///< the life of it that this controller was told of
    ZParameterStorageBase* storage = nullptr; // not owned: `effect`
    HostTimer timer;
    EditBrackets edits{ *this };
    std::thread::id hostThread; ///< the thread that initialized, or gave the component handler
    std::int32_t numChannels = 1;
    bool inSetParam = false;     ///< guards against a host that answers performEdit with setParamNormalized
    bool active = true;          ///< the processor's active state
    std::vector<float> snapshot; ///< values before a change
    std::vector<float> values;   ///< values after it
};

} // namespace tessaly
