#pragma once

#include "chance.h"
#include "plugin_instance.h"
#include "sound.h"
#include "strip_life.h"

#include <vector>

namespace tessaly::soak
{

/// One call of process with all that it takes, drawn ahead so that it can run on another thread.
struct AudioCall
{
    Sound sound;
    std::vector<host::ParameterPoint> points;
    Steinberg::int32 mode = Steinberg::Vst::kRealtime;
    bool inPlace = false;
    bool tellsSilence = false;
    bool hasBuses = true;
    bool hasContext = true;
    bool hasInputChanges = true;
    bool hasOutputChanges = true;
};

/// A block of the strip's size, of another one, of nothing, or beyond what was promised.
AudioCall MakeAudioCall (Chance& chance, const StripLife& life);

/// Runs it. Any thread.
/// @throws Fault when the strip fails, gives an infinity or a NaN for none, or shows a meter beyond 0 to 1
void Run (StripLife& life, AudioCall& call, Tally& tally);

} // namespace tessaly::soak
