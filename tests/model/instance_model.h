/// One instance as a host sees it: 22 normalized values that are rounded to steps, the morph, the two roads of a
/// parameter, the three bypass switches, and the order in which a fresh strip is told everything.
#pragma once

#include "strip_model.h"

#include <array>
#include <span>

namespace tessaly::model
{

/// The host's names of its ways to run a block.
enum class Mode
{
    kRealtime = 0,
    kPrefetch = 1,
    kOffline = 2
};

struct Change
{
    unsigned parameter = 0; // 0 to 21
    double value = 0.0;     // normalized
};

class InstanceModel
{
public:
    InstanceModel ();

    void Setup (double rateHz) { strip.SetRate (rateHz); }
    void SetActive (bool active) { active ? strip.Resume () : strip.Suspend (); }

    /// The controller's road: at once, unless the controller shows this value already.
    void SetFromController (Change change);

    /// One block. The queue counts in offline blocks and in the first other block after one, before the first sample.
    /// @param output  as long as the input; an empty block runs nothing and reads the meters as they stand
    void Process (std::span<const Change> queue, Mode mode, std::span<const float> input, std::span<float> output);

    const std::array<double, kParameterCount>& Shown () const { return shown; }
    const std::array<float, 2>& Meters () const { return strip.Readings (); }

private:
    float Plain (unsigned parameter) const;
    bool IsOn (unsigned parameter) const { return Plain (parameter) != 0.0f; }
    void Store (unsigned parameter, float value);        // storage and strip
    void SetParameter (unsigned parameter, float value); // with what hangs on it
    void Morph ();

    std::array<float, kParameterCount> values{}; // normalized
    std::array<double, kParameterCount> shown{}; // what the controller answers
    StripModel strip;
    bool wasOffline = false;
};

} // namespace tessaly::model
