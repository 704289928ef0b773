#pragma once

#include "channel_strip_parameters.h"
#include "old_effect.h"
#include "shared_key_points.h"
#include "shared_value.h"
#include "text_buffer.h"
#include <cstdint>
#include <optional>
#include <string>

namespace tessaly
{

/// GetInfo of the strip's effect: KPRD_Manager* of the storage; false without one.
inline constexpr std::int32_t kCodeKeyPointManager = kCodeFirstOfEffect;

// Events, data null. A state that turns out to be broken has no end of reading.
inline constexpr std::int32_t kCodeStateWriteBegins = kCodeFirstOfEffect + 1;
inline constexpr std::int32_t kCodeStateWriteEnds = kCodeFirstOfEffect + 2;
inline constexpr std::int32_t kCodeStateReadBegins = kCodeFirstOfEffect + 3;
inline constexpr std::int32_t kCodeStateReadEnds = kCodeFirstOfEffect + 4;

/// The strip's effect. It adds the morph: "Morph" moves the parameters 1 to 17 through the rows of the set of key
/// points in use. A user's change of one of them stays until the next morph. And it keeps "Bypass" and the two section
/// bypasses together.
///
/// The set of key points and its name travel with the stored state, so a project keeps its set when the file has gone.
///
/// Threads as in ZEffect: a morph runs on whatever thread sets "Morph". States and sets may be read while audio runs,
/// the name on one of the host's own threads at a time.
class ZChannel_StripEffect : public ZOldEffect
{
public:
    using ZOldEffect::ZOldEffect;

    bool GetInfo (std::int32_t kind, void* out) override;

    /// Writes the parameters 1 to 17 as the morph position says: value and default of each, which the editor is told
    /// of. A step beyond a parameter's range counts as the nearest end.
    /// @param index of "Morph", not looked at  @param normalized its value
    void ApplyMorph (std::int32_t index, float normalized);

    /// The steps of the parameters 1 to 17 that ApplyMorph writes at a position, each within its parameter's range. They
    /// are whole, so a parameter that a morph wrote reads exactly its step as plain value. Any thread.
    /// @param position  plain value of "Morph", 0 to 120
    /// @return nothing where a morph writes nothing: all key points are empty, or there is no storage
    std::optional<KeyPointRow> MorphStepsAt (float position) const;

    /// Takes the nine key points of a key-point file; a file with a fault changes nothing. No morph runs by itself.
    void LoadKeyPointBlock (const void* data, std::int32_t size);

    char* GetKeyPointName () { return keyPointName.data (); } ///< UTF-8; never null
    void SetKeyPointName (const char* name);                  ///< of more than 255 bytes, cut at a whole character

    std::int32_t GetStateSize () override;
    void WriteState (ZStream* stream) override;

    /// Takes the set and its name, then "Morph", then the parameters 0 to 19: edits win over the morph, and "Bypass" is
    /// settled by the two section bypasses. The collection's current entry is the set's, or none when it is not there,
    /// so that any entry can be chosen in its place. A broken state changes no parameter, though the set may be new by then.
    void ReadState (ZStream* stream) override;

    /// Why the state that was read last is broken; empty when it is not.
    const std::string& StateFault () const { return stateFault; }

    bool HasKeyPoint (std::uint32_t row) const { return keyPoints.Read ().HasKeyPoint (row); }
    std::int32_t KeyPointStep (std::uint32_t row, std::uint32_t column) const
    {
        return keyPoints.Read ().KeyPointStep (row, column);
    }
    static std::int32_t KeyPointParameter (std::uint32_t row, std::uint32_t column)
    {
        return KeyPointSet::KeyPointParameter (row, column);
    }

    /// Whether the morph has written a parameter since the last call. Lets the editor tell a change by the morph from a
    /// change by the user; a lost one costs it a needless comparison.
    bool TakeMorphWroteParameters () { return morphWroteParameters.Exchange (false); }

protected:
    void OnParameter (std::int32_t index, float normalized) override;

private:
    void WriteMorphed (std::int32_t index, float step);
    void ApplyValues (const std::array<float, kStripParameterCount>& stored);

    SharedKeyPoints keyPoints{ builtInKeyPoints };
    SharedValue<bool> morphWroteParameters = false;
    ZText keyPointName{ "01 Basic" };
    std::string stateFault;
};

} // namespace tessaly
