#pragma once

#include "audio_block.h"
#include "parameter_queue.h"
#include "result.h"
#include <cstdint>

namespace tessaly
{

class ZEffect;
class ZMidiEvent;
class ZVuBuffer;

/// Base class of every audio engine: samples in, samples out, parameters as plain values. Knows its effect and the
/// buffers for meters and MIDI, no host. Most operations do nothing here.
///
/// ProcessBlock, ProcessBlockBypassed and UpdateSilence run on the audio thread. SetParameter may run on another thread
/// at the same time; an engine's fields that it writes are relaxed atomics. All else is set-up, never during a block.
class ZPluginCore
{
public:
    explicit ZPluginCore (ZEffect* owner)
        : effect (owner)
    {
    }
    virtual ~ZPluginCore () = default;
    ZPluginCore (const ZPluginCore&) = delete;
    ZPluginCore& operator= (const ZPluginCore&) = delete;

    virtual void SetVuBuffer (ZVuBuffer* buffer) { vuBuffer = buffer; }
    virtual void SetMidiEvent (ZMidiEvent* buffer) { midiEvent = buffer; }
    virtual void SetBypass (bool /*on*/) {}
    virtual std::int32_t SetActive (bool active); ///< Resume or Suspend. @return kOk

    virtual void Process (float** /*in*/, float** /*out*/, std::int32_t /*count*/) {}
    virtual void ProcessBypassed (float** in, float** out, std::int32_t count); ///< copies channel 0

    /// One block. Points of the queue are applied in offline blocks only, all of them before the first sample.
    /// @return kOk; kFailed, with nothing touched, unless the samples are 32-bit float
    virtual std::int32_t ProcessBlock (ZAudioBlock& block);
    virtual std::int32_t ProcessBlockBypassed (ZAudioBlock& block); ///< likewise, with the dry signal

    virtual void SetParameter (std::int32_t /*index*/, float /*plain*/) {}
    virtual void SetProgram (std::int32_t /*index*/) {}
    virtual void SetChannels (std::int32_t /*inputs*/, std::int32_t /*outputs*/) {}
    virtual void SetSampleRate (double /*rateHz*/) {}
    virtual void SetBlockSize (std::int32_t /*samples*/) {}

    /// Limits the counts to the greatest ones and makes the outputs as many as the inputs, then sets them.
    /// @return 2 when a count was changed, else 0; 0 with nothing done when a pointer is null
    virtual std::int32_t NegotiateChannels (std::int32_t* inputs, std::int32_t* outputs);
    virtual std::int32_t GetMaxInputChannels () { return 2; }
    virtual std::int32_t GetMaxOutputChannels () { return 2; }

    virtual void HookA () {}
    virtual void HookB () {}
    virtual void Resume () {}
    virtual void Suspend () {}
    virtual std::int32_t GetLatency () { return 0; } ///< samples
    virtual std::int32_t GetTail () { return 0; }    ///< samples
    virtual void MidiEvent (std::uint8_t /*status*/, std::uint8_t /*data1*/, std::uint8_t /*data2*/,
                            std::int32_t /*sampleOffset*/)
    {
    }
    virtual void MidiExtra (std::int32_t, std::int32_t, std::int32_t) {}
    virtual bool QueryA (std::int32_t, std::int32_t, void*) { return false; }
    virtual bool QueryB (std::int32_t, std::int32_t, void*) { return false; }
    virtual void SetFlag (bool on) { flag = on; }
    virtual bool GetFlag () { return flag; }
    virtual bool QueryC (std::int32_t, std::int32_t, void*) { return false; }

    /// Hands every point of the queue, in its order, to the effect. Null does nothing. @return kOk
    virtual std::int32_t ApplyParameterQueue (ZParameterQueue* queue);

    /// Side-chain channels that go with that many main channels. @return kOk
    virtual std::int32_t GetSideChainChannels (std::int32_t mainChannels, std::int32_t* count);

    /// After every block: an output that stays below 2^-30 under silent input raises `silent`; a sample at or above
    /// it clears the block's flags. @return kOk
    virtual std::int32_t UpdateSilence (ZAudioBlock& block);
    virtual void CopyThrough (float** in, float** out, std::int32_t count); ///< copies channel 0

protected:
    ZEffect* effect;                 // not owned: the effect owns this core
    ZVuBuffer* vuBuffer = nullptr;   // not owned: the effect, which sets it anew when it changes
    ZMidiEvent* midiEvent = nullptr; // not owned: the effect, likewise
    bool flag = false;
    bool silent = false; // input flagged silent and the output decayed; audio thread
};

} // namespace tessaly
