#include "sound.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tessaly::soak
{

namespace
{

using Limits = std::numeric_limits<float>;

constexpr std::array kPeaks{ 0.001, 0.1, 0.5, 1.0, 1.0, 8.0 };
constexpr std::array kHugePeaks{ 1e4, 1e10, 1e20, 1e30 };
constexpr std::array kPoison{ Limits::quiet_NaN (), Limits::infinity (), -Limits::infinity () };

void FillWithNoise (std::vector<float>& samples, Chance& chance, double peak)
{
    std::generate (samples.begin (), samples.end (), [&] { return static_cast<float> (chance.Between (-peak, peak)); });
}

void FillWithSteps (std::vector<float>& samples, Chance& chance)
{
    const std::size_t half = 1 + chance.Below (200);
    for (std::size_t i = 0; i < samples.size (); ++i)
        samples[i] = i / half % 2 == 0 ? 1.0F : -1.0F;
}

} // namespace

Sound MakeSound (Chance& chance, std::size_t count)
{
    Sound sound{ std::vector<float> (count) };
    switch (chance.Below (12))
    {
    case 0:
    case 1:
        break; // silence
    case 2:
        FillWithNoise (sound.samples, chance, static_cast<double> (Limits::min ()) / 2); // denormals
        break;
    case 3:
        FillWithSteps (sound.samples, chance);
        break;
    case 4:
        FillWithNoise (sound.samples, chance, chance.Pick (kHugePeaks));
        break;
    default:
        FillWithNoise (sound.samples, chance, chance.Pick (kPeaks));
        break;
    }
    if (count > 0 && chance.OneIn (40))
    {
        sound.isFinite = false;
        for (std::size_t left = 1 + chance.Below (3); left > 0; --left)
            sound.samples[chance.Below (count)] = chance.Pick (kPoison);
    }
    return sound;
}

} // namespace tessaly::soak
