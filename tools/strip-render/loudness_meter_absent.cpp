// In the place of loudness_meter.cpp where libebur128 is not there.

#include "loudness_meter.h"

#include "render_error.h"

namespace tessaly::render
{

void LoudnessMeter::RequireBuilt ()
{
    throw RenderError ("this strip-render is built without libebur128, which measures loudness");
}

struct LoudnessMeter::State
{
};

LoudnessMeter::LoudnessMeter (int /*channels*/, int /*sampleRateHz*/)
{
    RequireBuilt ();
}

LoudnessMeter::~LoudnessMeter () = default;

void LoudnessMeter::Add (std::span<const float> /*samples*/) {}

Loudness LoudnessMeter::Reading () const
{
    return {};
}

} // namespace tessaly::render
