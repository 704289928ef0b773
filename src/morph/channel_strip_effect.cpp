#include "channel_strip_effect.h"

#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "morph.h"

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

void ZChannel_StripEffect::ApplyMorph (std::int32_t /*index*/, float normalized)
{
    if (storage == nullptr)
        return;
    const auto steps = MorphedSteps (keyPoints.Read (), storage->NormalizedToPlain (kMorph, normalized));
    if (!steps)
        return;
    for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
        WriteMorphed (KeyPointParameter (0, column), (*steps)[column]);
}

void ZChannel_StripEffect::WriteMorphed (std::int32_t index, float plain)
{
    morphWroteParameters.store (true, std::memory_order_relaxed);
    const auto normalized = storage->PlainToNormalized (index, plain);
    SetNormalized (index, normalized);
    storage->SetDefaultNormalized (index, normalized); // so that "back to default" means what the morph gave
    PostHost (index);
}

} // namespace tessaly
