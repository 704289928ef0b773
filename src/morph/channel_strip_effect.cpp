#include "channel_strip_effect.h"

#include "ch_strip_file_exception.h"
#include "channel_strip_storage.h"
#include "key_point_file.h"
#include "memory_stream.h"
#include "morph.h"
#include "null_stream.h"
#include "step_ranges.h"
#include "stored_value.h"
#include "strip_state.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr auto kEqualizerBypass = IndexOf (StripParameter::equalizerBypass);
constexpr auto kCompressorBypass = IndexOf (StripParameter::compressorBypass);
constexpr auto kMorph = IndexOf (StripParameter::morph);
constexpr auto kBypass = IndexOf (StripParameter::bypass);

} // namespace

bool ZChannel_StripEffect::GetInfo (std::int32_t kind, void* out)
{
    auto* stripStorage = dynamic_cast<ZChannel_StripStorage*> (storage.get ());
    if (kind != kCodeKeyPointManager || out == nullptr || stripStorage == nullptr)
        return ZOldEffect::GetInfo (kind, out);
    *static_cast<KPRD_Manager**> (out) = stripStorage->Manager ();
    return true;
}

void ZChannel_StripEffect::OnParameter (std::int32_t index, float normalized)
{
    ZOldEffect::OnParameter (index, normalized);
    if (storage == nullptr)
        return;

    // By SetBool, which does not come back here: the switches would set one another for ever
    if (index == kEqualizerBypass || index == kCompressorBypass)
        SetBool (kBypass, storage->GetBool (kEqualizerBypass) && storage->GetBool (kCompressorBypass));
    else if (index == kMorph)
        ApplyMorph (index, normalized);
    else if (index == kBypass)
    {
        SetBool (kEqualizerBypass, normalized >= 0.5f);
        SetBool (kCompressorBypass, normalized >= 0.5f);
    }
}

std::optional<KeyPointRow> ZChannel_StripEffect::MorphStepsAt (float position) const
{
    auto steps = storage != nullptr ? MorphedSteps (keyPoints.Read (), position) : std::nullopt;
    if (!steps)
        return steps;
    // A foreign set may hold any step; one beyond the scales would be a filter of 0 Hz, and NaN from then on.
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
    {
        const auto& range = kStepRanges[static_cast<std::size_t> (KeyPointParameter (0, column))];
        (*steps)[column] =
            static_cast<std::int16_t> (std::clamp<std::int32_t> ((*steps)[column], range.first, range.last));
    }
    return steps;
}

void ZChannel_StripEffect::ApplyMorph (std::int32_t /*index*/, float normalized)
{
    const auto steps = MorphStepsAt (storage != nullptr ? storage->NormalizedToPlain (kMorph, normalized) : 0.0f);
    if (!steps)
        return;
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
        WriteMorphed (KeyPointParameter (0, column), (*steps)[column]);
}

void ZChannel_StripEffect::WriteMorphed (std::int32_t index, float step)
{
    morphWroteParameters = true;
    storage->SetPlainAndDefault (index, step); // so that "back to default" means what the morph gave
    ToCore (index, step);                      // which is what the storage makes of it
    PostHost (index);
}

void ZChannel_StripEffect::LoadKeyPointBlock (const void* data, std::int32_t size)
{
    auto set = keyPoints.Read (); // row 9 is in no file
    if (ReadKeyPointFile (data, size, set))
        keyPoints.Replace (set);
}

void ZChannel_StripEffect::SetKeyPointName (const char* name)
{
    CopyText (CutAtCharacter (name, kTextSize - 1), keyPointName.data (), kTextSize - 1);
}

std::int32_t ZChannel_StripEffect::GetStateSize ()
{
    ZNullStream counter;
    WriteState (&counter);
    return counter.GetSize ();
}

void ZChannel_StripEffect::WriteState (ZStream* stream)
{
    PostEvent (kCodeStateWriteBegins - kCodeFirstOfEffect, nullptr);
    StripState state;
    for (std::int32_t i = 0; i < kStripParameterCount; ++i)
        state.values[static_cast<std::size_t> (i)] = ReadParameter (i);
    state.keyPointName = keyPointName;
    state.keyPoints = keyPoints.Read ();

    // At once, since sizes are filled in afterwards and some hosts' streams end where they were last written.
    std::array<std::uint8_t, kStripTreeBytes> bytes{};
    ZMemoryStream memory (bytes.data (), kStripTreeBytes);
    WriteStripTree (memory, state);
    stream->Write (bytes.data (), memory.GetSize ());
    PostEvent (kCodeStateWriteEnds - kCodeFirstOfEffect, nullptr);
}

void ZChannel_StripEffect::ReadState (ZStream* stream)
{
    PostEvent (kCodeStateReadBegins - kCodeFirstOfEffect, nullptr);
    StripState state;
    state.keyPointName = keyPointName;
    const auto before = keyPoints.Read ();
    state.keyPoints = before;
    for (std::int32_t i = kStateHeadValues; storage != nullptr && i < kStripParameterCount; ++i)
        state.values[static_cast<std::size_t> (i)] =
            storage->GetDefaultNormalized (i); // what an older state leaves out
    stateFault.clear ();
    try
    {
        ReadStripTree (*stream, state);
    }
    catch (const ChStripFileException& fault)
    {
        stateFault = fault.what ();
    }
    if (state.keyPoints.rows != before.rows)
        keyPoints.Replace (state.keyPoints); // before "Morph", which goes by it
    if (!stateFault.empty ())
        return;

    ApplyValues (state.values);
    keyPointName = state.keyPointName;
    KPRD_Manager* manager = nullptr;
    if (GetInfo (kCodeKeyPointManager, &manager))
        manager->SetCurrent (manager->FindByName (keyPointName.data ()));
    PostEvent (kCodeStateReadEnds - kCodeFirstOfEffect, nullptr);
}

void ZChannel_StripEffect::ApplyValues (const std::array<float, kStripParameterCount>& stored)
{
    auto values = stored;
    for (std::int32_t i = 0; i < kStripParameterCount; ++i)
    {
        auto& value = values[static_cast<std::size_t> (i)];
        value = StoredValue (value).value_or (ReadParameter (i));
    }
    OnParameter (kMorph, values[kMorph]);
    for (std::int32_t i = 0; i < kMorph; ++i)
        OnParameter (i, values[static_cast<std::size_t> (i)]);
    for (std::int32_t i = kStateHeadValues; i < kStripParameterCount; ++i) // "Bypass", ahead of them, is the head's
        OnParameter (i, values[static_cast<std::size_t> (i)]);
}

} // namespace tessaly
