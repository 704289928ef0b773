#pragma once

#include "effect_wrapper.h"
#include "midi_event.h"
#include "parameter_storage_base.h"
#include "plugin_core.h"
#include "result.h"
#include "shared_value.h"
#include "vu_buffer.h"
#include <cstdint>
#include <memory>
#include <vector>

namespace tessaly
{

class ZStream;

/// The hub of one plug-in instance: owns engine, parameter storage, meters and MIDI buffer, and is the one road by
/// which a parameter reaches the engine. Talks to the outside through its wrapper only.
///
/// Threads: Process, ProcessRaw, MidiEvent and AfterProcess on the audio thread; SetParameter, GetParameter, SetBypass,
/// SetLoading and GetInfo (but for the time information, which is the audio thread's) on any thread; all else during
/// set-up, never concurrently with a block. No locks: what threads share is a SharedValue or a relaxed cell.
class ZEffect
{
public:
    /// @param host  null: nobody listens
    explicit ZEffect (ZEffectWrapper* host)
        : wrapper (host)
    {
    }
    virtual ~ZEffect () = default;
    ZEffect (const ZEffect&) = delete;
    ZEffect& operator= (const ZEffect&) = delete;

    virtual ZEffectWrapper* GetWrapper () { return wrapper; }
    virtual void Initialize () { OnInitialize (); }
    virtual void Shutdown (); ///< destroys core, storage and buffers, in this order

    /// Takes the core over and hands it the buffers, all settings and, in index order, every parameter.
    /// The storage comes first; without one the core gets neither program nor parameters.
    virtual void SetPluginCore (std::unique_ptr<ZPluginCore> newCore);

    /// Fills the storage from the tables, takes it over and selects program 0.
    virtual void SetStorage (std::unique_ptr<ZParameterStorageBase> newStorage, const ZParameterRecord* parameters,
                             const ZProgramRecord* programs, std::int32_t numPrograms, std::int32_t numParameters);
    virtual void CreateVuBuffer (std::int32_t count) { AdoptVuBuffer (NewVuBuffer (count)); }
    virtual void DeleteVuBuffer () { AdoptVuBuffer (nullptr); }
    virtual void CreateMidiEvent () { AdoptMidiEvent (NewMidiEvent ()); }
    virtual void DeleteMidiEvent () { AdoptMidiEvent (nullptr); }

    virtual bool QueryEffect (std::int32_t /*kind*/, void* /*out*/) { return false; }

    /// Answers a query. @param kind of EffectCode  @param out as stated there
    /// @return false, with nothing written, for null or an unknown kind
    virtual bool GetInfo (std::int32_t kind, void* out);
    virtual bool NotifyEditor (std::int32_t code, void* data);
    virtual bool NotifyEditor2 (std::int32_t code, void* data);

    virtual std::int32_t Process (ZAudioBlock& block); ///< @return the core's result; kOk without a core
    virtual void ProcessRaw (float** in, float** out, std::int32_t count);
    virtual void BeforeProcess () {}
    virtual std::int32_t AfterProcess (ZAudioBlock& block);

    virtual void SetChannels (std::int32_t inputs, std::int32_t outputs);
    virtual std::int32_t NegotiateChannels (std::int32_t* inputs, std::int32_t* outputs); ///< 2: counts changed
    virtual std::int32_t GetSideChainChannels (std::int32_t mainChannels, std::int32_t* count);
    virtual void MidiEvent (std::uint8_t status, std::uint8_t data1, std::uint8_t data2, std::int32_t sampleOffset);
    virtual void MidiExtra (std::int32_t a, std::int32_t b, std::int32_t c);

    /// Set while a whole set of values is being applied.
    virtual void SetLoading (bool on) { loading = on; }
    virtual bool IsLoading () { return loading; }

    virtual void SetParameter (std::int32_t index, float normalized);
    virtual float GetParameter (std::int32_t index) { return ReadParameter (index); }
    virtual void SetProgram (std::int32_t index);
    virtual void SetSampleRate (double rateHz);
    virtual void SetBlockSize (std::int32_t samples);
    virtual void SetBypass (bool on);
    virtual void SetMeterArgument (std::int32_t samples); ///< meter values are held back by that much
    virtual std::int32_t SetActive (bool active);
    virtual void HookA ();
    virtual void HookB ();
    virtual std::int32_t GetLatency (); ///< samples
    virtual std::int32_t GetTail ();    ///< samples
    virtual void PostHost (std::int32_t argument);
    virtual void GetTimeInfo (ZTimeInfo* info);
    virtual std::int32_t GetHostName (char* buffer); ///< buffer: 256 bytes. @return kOk or kFailed
    virtual bool HasRepresentation () { return false; }
    virtual std::int32_t WriteRepresentation (ZStream* /*stream*/) { return kFailed; }

    // The state that a host stores for the instance, beyond its parameters. A bare effect has none
    virtual std::int32_t GetStateSize () { return 0; } ///< bytes
    virtual void WriteState (ZStream* /*stream*/) {}
    virtual void ReadState (ZStream* /*stream*/) {}
    virtual std::int32_t WriteProgramState (std::int32_t /*list*/, std::int32_t /*program*/, ZStream* /*stream*/)
    {
        return kFailed;
    }
    virtual std::int32_t ReadProgramState (std::int32_t /*list*/, std::int32_t /*program*/, ZStream* /*stream*/)
    {
        return kFailed;
    }

protected:
    virtual void OnInitialize () {}
    virtual void OnShutdown () {}

    // The old object is destroyed before the new one is stored, then the editor is told
    virtual void AdoptCore (std::unique_ptr<ZPluginCore> newCore);
    virtual void AdoptStorage (std::unique_ptr<ZParameterStorageBase> newStorage);
    virtual void AdoptVuBuffer (std::unique_ptr<ZVuBuffer> newBuffer);
    virtual void AdoptMidiEvent (std::unique_ptr<ZMidiEvent> newBuffer);
    virtual std::unique_ptr<ZVuBuffer> NewVuBuffer (std::int32_t count);
    virtual std::unique_ptr<ZMidiEvent> NewMidiEvent ();

    virtual void OnParameter (std::int32_t index, float normalized) { SetNormalized (index, normalized); }
    virtual float ReadParameter (std::int32_t index); ///< normalized; 0.0 without a storage
    virtual void OnProgram (std::int32_t /*index*/) {}
    virtual void OnAllParameters () {} ///< all parameters were set, in index order without a gap

    // Into the storage, then as plain value into the core
    virtual void SetNormalized (std::int32_t index, float normalized);
    virtual void SetPlain (std::int32_t index, float plain);
    virtual void SetBool (std::int32_t index, bool on);
    virtual void SetInt (std::int32_t index, std::int32_t number);
    void ToCore (std::int32_t index, float plain); ///< into the core alone

    ZEffectWrapper* wrapper; // not owned: the adapter, which owns this effect
    std::unique_ptr<ZParameterStorageBase> storage;
    std::unique_ptr<ZVuBuffer> vuBuffer;
    std::unique_ptr<ZMidiEvent> midiEvent;
    std::unique_ptr<ZPluginCore> core; // last: destroyed before what it borrows

private:
    void TrackSweep (std::int32_t index);
    void BeginBuffers ();
    void EndBuffers (std::int32_t samples);

    std::vector<float> programValues; // normalized, of the program as last selected; relaxed_cells.h
    SharedValue<bool> sweepRunning = false;
    SharedValue<std::int32_t> sweepIndex = 0;
    SharedValue<std::int32_t> numInputs = 1;
    SharedValue<std::int32_t> numOutputs = 1;
    SharedValue<double> sampleRate = 44100.0;
    SharedValue<std::int32_t> blockSize = 1024;
    SharedValue<bool> bypass = false;
    SharedValue<std::int32_t> meterArgument = 0;
    SharedValue<bool> loading = false;
};

} // namespace tessaly
