#pragma once

#include "chance.h"

#include "pluginterfaces/vst/vsttypes.h"

#include <array>
#include <limits>

namespace tessaly::soak
{

/// What no host should send.
inline constexpr std::array kWildValues{ -1.0,
                                         2.0,
                                         1e300,
                                         std::numeric_limits<double>::infinity (),
                                         -std::numeric_limits<double>::infinity (),
                                         std::numeric_limits<double>::quiet_NaN () };
inline constexpr std::array kWildRatesHz{
    0.0, 15.0, -48000.0, 1e300, std::numeric_limits<double>::infinity (), std::numeric_limits<double>::quiet_NaN ()
};

/// Beyond the strip's own, meters and MIDI controllers among them.
inline constexpr std::array<Steinberg::Vst::ParamID, 9> kWildIds{ 22,         99,         0xFFFFFFF,
                                                                  0x10000000, 0x10000001, 0x20000001,
                                                                  0x20000081, 0x7FFFFFFF, 0xFFFFFFFF };

/// A parameter's normalized value: mostly somewhere, often an end, now and then a wild one.
inline double MakeValue (Chance& chance)
{
    if (chance.OneIn (100))
        return chance.Pick (kWildValues);
    if (chance.OneIn (4))
        return chance.OneIn (2) ? 1.0 : 0.0;
    return chance.Unit ();
}

} // namespace tessaly::soak
