#pragma once

#include "block_pace.h"
#include "effect_wrapper.h"
#include "kvp_factory.h"
#include "live_effect.h"
#include "parameter_queue.h"
#include "public.sdk/source/vst/vstaudioeffect.h"
#include "time_info.h"
#include "vst3_state_block.h"
#include <memory>

namespace tessaly
{

struct ZAudioBlock;

/// The processor half of the plug-in. It makes the effect of the instance and turns the host's calls into calls on it;
/// the controller of the same process is handed the effect's pointer by message and shares it (LiveEffect).
///
/// `process` runs on the audio thread, everything else on the host's main or set-up thread. The audio thread waits for
/// nothing. `disconnect`, `terminate` and the editor's leaving wait until no other thread is inside the editor's
/// OnEffectEvent (GuardedPointer); so that may not wait for the user-interface thread.
///
/// Parameter points: NaN is dropped, one beyond 0 to 1 counts as the nearest end. The queue holds
/// 64 points; a block with more hands them on in pieces of 64, in their order, so that no block allocates.
class ZVst3EffectWrapper final : public Steinberg::Vst::AudioEffect, public ZEffectWrapper
{
public:
    ZVst3EffectWrapper ();
    ~ZVst3EffectWrapper () override;

    /// Create function of the class factory.
    static Steinberg::FUnknown* CreateInstance (void* context);

    // IPluginBase
    Steinberg::tresult PLUGIN_API initialize (Steinberg::FUnknown* context) override;
    Steinberg::tresult PLUGIN_API terminate () override;

    // IConnectionPoint
    Steinberg::tresult PLUGIN_API connect (Steinberg::Vst::IConnectionPoint* peer) override;
    Steinberg::tresult PLUGIN_API disconnect (Steinberg::Vst::IConnectionPoint* peer) override;
    Steinberg::tresult PLUGIN_API notify (Steinberg::Vst::IMessage* message) override;

    // IComponent
    Steinberg::tresult PLUGIN_API setActive (Steinberg::TBool state) override;
    Steinberg::tresult PLUGIN_API setState (Steinberg::IBStream* stream) override;
    Steinberg::tresult PLUGIN_API getState (Steinberg::IBStream* stream) override;

    // IAudioProcessor
    Steinberg::tresult PLUGIN_API setBusArrangements (Steinberg::Vst::SpeakerArrangement* inputs,
                                                      Steinberg::int32 numIns,
                                                      Steinberg::Vst::SpeakerArrangement* outputs,
                                                      Steinberg::int32 numOuts) override;
    Steinberg::tresult PLUGIN_API setupProcessing (Steinberg::Vst::ProcessSetup& setup) override;
    Steinberg::tresult PLUGIN_API process (Steinberg::Vst::ProcessData& data) override;
    Steinberg::uint32 PLUGIN_API getLatencySamples () override;
    Steinberg::uint32 PLUGIN_API getTailSamples () override;

    // ZEffectWrapper
    bool NotifyEditor (std::int32_t code, void* data) override;
    bool NotifyEditor2 (std::int32_t code, void* data) override;
    void GetTimeInfo (ZTimeInfo* out) override;
    std::int32_t GetHostName (char* buffer) override;

    OBJ_METHODS (ZVst3EffectWrapper, Steinberg::Vst::AudioEffect)

private:
    friend class ZVst3EffectWrapperAccessorImp;

    Steinberg::tresult SendPointer (const char* id) const; ///< sends the effect's pointer to the controller
    bool AddSideChain ();
    void CollectParameterChanges (Steinberg::Vst::IParameterChanges* changes);
    void CollectPoint (Steinberg::Vst::ParamID id, Steinberg::int32 sampleOffset, Steinberg::Vst::ParamValue value);
    void CollectMidi (std::uint32_t number, Steinberg::int32 sampleOffset, Steinberg::Vst::ParamValue value);
    void AddPoint (Steinberg::Vst::ParamID id, Steinberg::int32 sampleOffset, float value);
    void HandOnQueue ();
    void HandOverLatePoints (const Steinberg::Vst::ProcessData& data);
    void CollectEvents (Steinberg::Vst::IEventList* events);
    void UpdateTimeInfo (const Steinberg::Vst::ProcessContext* context);
    void UpdateBypass (Steinberg::Vst::ParamID id);
    void ProcessBlock (Steinberg::Vst::ProcessData& data);
    void FillBlock (Steinberg::Vst::ProcessData& data, ZAudioBlock& block);
    void WriteMeters (Steinberg::Vst::IParameterChanges* changes) const;

    FactoryReference factory;
    std::shared_ptr<LiveEffect> life;         // the effect and its editor; null before initialize and after terminate
    ZEffect* effect = nullptr;                // not owned: `life`
    ZParameterStorageBase* storage = nullptr; // not owned: `effect`
    ardour::LatePoints* latePoints = nullptr; // not owned: `life`; takes the place of the queue in Ardour, else null
    ardour::BlockPace pace;                   // used with them
    ZParameterQueue parameterQueue;
    ZTimeInfo timeInfo;
    std::int32_t lastProcessMode = 0;
    bool offlineLatch = false;     // the block after the last offline one still counts as offline
    bool appliesPoints = false;    // the points of the block at hand will be applied, not dropped
    bool hasAppliedPoints = false; // and there are some
    bool hasSideChain = false;
    bool stateLoaded = false; // a host has given a state
    ZVst3StateBlock stateBlock;
};

} // namespace tessaly
