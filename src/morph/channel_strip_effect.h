#pragma once

#include "old_effect.h"
#include "shared_key_points.h"
#include <atomic>
#include <cstdint>

namespace tessaly
{

/// GetInfo of the strip's effect: KPRD_Manager* of the storage; false without one.
inline constexpr std::int32_t kCodeKeyPointManager = kCodeFirstOfEffect;

/// The strip's effect. It adds the morph: "Morph" moves the parameters 1 to 17 through the rows of the set of key
/// points in use. A user's change of one of them stays until the next morph. And it keeps "Bypass" and the two section
/// bypasses together.
///
/// Threads as in ZEffect: a morph runs on whatever thread sets "Morph".
class ZChannel_StripEffect : public ZOldEffect
{
public:
    using ZOldEffect::ZOldEffect;

    bool GetInfo (std::int32_t kind, void* out) override;

    /// Writes the parameters 1 to 17 as the morph position says: value and default of each, which the editor is told
    /// of. @param index of "Morph", not looked at  @param normalized its value
    void ApplyMorph (std::int32_t index, float normalized);

    bool HasKeyPoint (std::uint32_t row) const { return keyPoints.Read ().HasKeyPoint (row); }
    std::int32_t KeyPointStep (std::uint32_t row, std::uint32_t column) const
    {
        return keyPoints.Read ().KeyPointStep (row, column);
    }
    static std::int32_t KeyPointParameter (std::uint32_t row, std::uint32_t column)
    {
        return KeyPointTable::KeyPointParameter (row, column);
    }

    /// Whether the morph has written a parameter since the last call. Lets the editor tell a change by the morph from a
    /// change by the user; a lost one costs it a needless comparison.
    bool TakeMorphWroteParameters () { return morphWroteParameters.exchange (false, std::memory_order_relaxed); }

protected:
    void OnParameter (std::int32_t index, float normalized) override;

private:
    void WriteMorphed (std::int32_t index, float plain);

    SharedKeyPoints keyPoints{ builtInKeyPoints };
    std::atomic<bool> morphWroteParameters = false;
};

} // namespace tessaly
