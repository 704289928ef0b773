#pragma once

#include "copy_handler.h"
#include "edit_brackets.h"
#include "editor_controller.h"
#include "host_timer.h"
#include "kvp_factory.h"
#include "late_points.h"
#include "pluginterfaces/vst/ivstmidicontrollers.h"
#include "pluginterfaces/vst/ivstrepresentation.h"
#include "public.sdk/source/vst/vsteditcontroller.h"
#include "shared_value.h"
#include "tick_clock.h"
#include "vu_buffer.h"
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace tessaly
{

class LiveEffect;

/// The controller half of the plug-in. It has no parameter model of its own: its parameter objects are views onto the
/// storage of the effect, whose pointer the processor of the same process sends. A change goes straight into the shared
/// effect, so this is the main road by which values reach the engine.
///
/// A normalized value that a host hands in counts as the nearest end beyond 0 to 1. NaN is refused when it is to be set,
/// and otherwise stands for the parameter's present value; so no answer here is NaN. A value is a repeat, which makes no
/// trip through the effect, only if the parameter object and the storage both hold it, as float: an offline block and a
/// state reach the storage alone.
///
/// Host's user-interface thread. Hosts without a run loop never call the timer; what is to happen by time is looked at
/// on the calls that hosts make on that thread. The processor may end on another thread concurrently, and its message
/// may be lost: what this half looks at stays until it lets go (LiveEffect), and it answers as if never connected.
/// setParamNormalized takes no lock, but in Ardour.
class ZVst3ControllerWrapper final : public Steinberg::Vst::EditControllerEx1,
                                     public Steinberg::Vst::IMidiMapping,
                                     public Steinberg::Vst::IXmlRepresentationController,
                                     public ardour::ICopyHandler,
                                     public EditorController,
                                     private EditHost
{
public:
    /// @param tickClock  tells when edits end
    explicit ZVst3ControllerWrapper (TickClock tickClock = SteadyTickMs);
    ~ZVst3ControllerWrapper () override;

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
    Steinberg::IPlugView* PLUGIN_API createView (Steinberg::FIDString name) override;

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

    // ICopyHandler, in Ardour alone
    Steinberg::tresult PLUGIN_API addSlave (Steinberg::Vst::IEditController* copy, Steinberg::int32 mode) override;
    Steinberg::tresult PLUGIN_API removeSlave (Steinberg::Vst::IEditController* copy) override;

    // EditorController
    bool QueryEffect (std::int32_t kind, void* out) override;
    bool GetInfo (std::int32_t kind, void* out) override;
    void SetParameterFromEditor (Steinberg::Vst::ParamID id, float value) override;
    void BeginHeldEdit (Steinberg::Vst::ParamID id) override;
    void EndAllHeldEdits () override { edits.EndAllHeld (); }
    void EndAllTimedEdits () override { edits.EndAllTimed (); }
    void RenewHeldEdits () override { edits.RenewHeld (clock ()); }
    void SyncParameter (std::int32_t index) override;
    void ConnectEditor (ZEffectListener& newEditor) override;
    void DisconnectEditor (ZEffectListener& oldEditor) override;
    bool HasEffect () const override { return Effect () != nullptr; }
    bool IsActive () const override { return active; }
    void AddView (EditorViewListener& view) override;
    void RemoveView (EditorViewListener& view) override { std::erase (views, &view); }

    // The other edits
    void EndHeldEdit (Steinberg::Vst::ParamID id) { edits.EndHeld (id); }
    void BeginTimedEdit (Steinberg::Vst::ParamID id) { edits.BeginTimed (id, clock ()); }
    void EndTimedEdit (Steinberg::Vst::ParamID id) { edits.EndTimed (id); }

    /// Every edit that the host is told of.
    Steinberg::tresult performEdit (Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue value) override;

    /// None without an effect, whatever the list holds.
    Steinberg::Vst::Parameter* getParameterObject (Steinberg::Vst::ParamID id) override;

    OBJ_METHODS (ZVst3ControllerWrapper, Steinberg::Vst::EditControllerEx1)
    DEFINE_INTERFACES
    DEF_INTERFACE (Steinberg::Vst::IMidiMapping)
    DEF_INTERFACE (Steinberg::Vst::IXmlRepresentationController)
    if (LatePoints () != nullptr)
        DEF_INTERFACE (ardour::ICopyHandler)
    END_DEFINE_INTERFACES (Steinberg::Vst::EditControllerEx1)
    REFCOUNT_METHODS (Steinberg::Vst::EditControllerEx1)

private:
    void BeginHostEdit (std::uint32_t id) override { beginEdit (id); }
    void EndHostEdit (std::uint32_t id) override;

    ardour::LatePoints* LatePoints () const; ///< null in every host but Ardour
    ZEffect* Effect () const;                ///< null while there is none, or it has ended
    bool OnEffectMessage (Steinberg::Vst::IMessage& message);
    void SetActive (bool state);
    void Attach (std::shared_ptr<LiveEffect> newLife); ///< null detaches
    void TellViewsOfEnd ();
    void SetStorage (ZParameterStorageBase* newStorage);
    void BuildUnits ();
    void BuildParameters ();
    void UpdateParameters (ZParameterStorageBase* newStorage);
    void RefreshValues ();
    void FollowStorage ();
    Steinberg::Vst::ParamValue Usable (Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue normalized);
    bool IsRepeat (Steinberg::Vst::ParamID id, float value);
    void SetInEffect (ZEffect& effect, std::int32_t index, float value);
    Steinberg::tresult ReportSideEffects (Steinberg::Vst::ParamID id, float value);
    void ReportToHost (std::int32_t index, float value);
    void PerformInEdit (Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue value);
    void UpdateCopies ();
    void AnnounceEditor ();
    void EndAllEdits ();
    void OnHostCall ();

    FactoryReference factory;
    TickClock clock;
    ZVuBuffer vuBuffer;                            ///< the meters of the host's parameter feed
    std::shared_ptr<LiveEffect> life;              ///< shared with the processor; null while not connected
    std::vector<std::weak_ptr<LiveEffect>> copies; ///< what the same track's other channels run through, in Ardour
    ZParameterStorageBase* storage = nullptr;      // not owned: the effect of `life`
    std::vector<ZEffectListener*> editors;         // not owned: the views', until DisconnectEditor; the newest is last
    std::vector<EditorViewListener*> views;        // not owned: the open ones
    bool viewsHaveEffect = false;
    HostTimer timer;
    EditBrackets edits{ *this };
    std::atomic<std::thread::id> hostThread; ///< the thread that initialized, or gave the component handler
    std::int32_t numChannels = 1;
    bool everActive = false;         ///< since the effect came
    bool hostIsBehind = false;       ///< Ardour has not been told of values that moved
    bool inFollow = false;           ///< guards against a host that answers restartComponent with questions
    bool inSetParam = false;         ///< guards against a host that answers performEdit with setParamNormalized
    SharedValue<bool> active = true; ///< the processor's active state
    std::vector<float> snapshot;     ///< values before a change
    std::vector<float> values;       ///< values after it
};

} // namespace tessaly
