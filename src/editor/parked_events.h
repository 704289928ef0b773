#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace tessaly
{

class ZMidiEvent;
class ZParameterStorageBase;
class ZPluginCore;
class ZVuBuffer;

/// What an effect told since the events were last taken. Of events of one code the newest counts, of posted parameters
/// each.
struct EffectEvents
{
    static constexpr std::int32_t kParameters = 256;

    bool Has (std::int32_t code) const { return (codes >> code & 1) != 0; }
    bool HasParameter (std::int32_t id) const ///< id: 0 to kParameters - 1
    {
        return (parameters[static_cast<std::size_t> (id / 64)] >> (id % 64) & 1) != 0;
    }

    bool HasOwn (std::int32_t own) const { return (ownCodes >> own & 1) != 0; } ///< kCodeFirstOfEffect + own

    std::uint32_t codes = 0;    // a bit for each EffectCode; the rest is good where its bit is set
    std::uint32_t ownCodes = 0; // likewise for the events of the effect's own
    ZPluginCore* core = nullptr;
    ZParameterStorageBase* storage = nullptr;
    ZVuBuffer* meters = nullptr;
    ZMidiEvent* midi = nullptr;
    double sampleRate = 0.0; // Hz
    std::int32_t blockSize = 0;
    bool bypass = false;
    std::int32_t meterArgument = 0;
    std::int32_t channels = 0;
    bool everyParameter = false;
    std::array<std::uint64_t, kParameters / 64> parameters{}; // a bit for each posted id
};

/// Keeps an effect's events until the editor's own thread takes them: Park may be called on any thread, concurrently
/// with itself and with Take. Each slot is an atomic; the bit of a code is set after its slot, with release, and Take
/// reads it with acquire. No locks, no allocation.
///
/// The objects of the events that adopt one (core, storage, buffers) are only passed on: who exchanges them while an
/// editor is open does it on the editor's thread.
class ParkedEvents
{
public:
    static constexpr std::int32_t kOwnCodes = 32; // events of the effect's own, from kCodeFirstOfEffect on

    /// @param code  of EffectCode  @param data  as stated there; a posted id beyond EffectEvents::kParameters counts as
    ///              "every parameter"
    /// @return false, and nothing is kept, for a code that an effect does not send or without the data that it needs
    bool Park (std::int32_t code, void* data);
    EffectEvents Take ();

private:
    void ParkParameter (std::int32_t id);

    std::atomic<std::uint32_t> codes = 0;
    std::atomic<std::uint32_t> ownCodes = 0;
    std::atomic<ZPluginCore*> core = nullptr; // not owned: the effect's, as the next three
    std::atomic<ZParameterStorageBase*> storage = nullptr;
    std::atomic<ZVuBuffer*> meters = nullptr;
    std::atomic<ZMidiEvent*> midi = nullptr;
    std::atomic<double> sampleRate = 0.0;
    std::atomic<std::int32_t> blockSize = 0;
    std::atomic<bool> bypass = false;
    std::atomic<std::int32_t> meterArgument = 0;
    std::atomic<std::int32_t> channels = 0;
    std::atomic<bool> everyParameter = false;
    std::array<std::atomic<std::uint64_t>, EffectEvents::kParameters / 64> parameters{};
};

} // namespace tessaly
