#pragma once

#include "bundle.h"
#include "instance_model.h"
#include "named_host.h"
#include "plugin_instance.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tessaly::model
{

/// One instance of the bundle and one model, driven alike block by block; keeps count of where they differ.
class Duet
{
public:
    /// @param hostContext  not owned: the caller, outlives the duet
    Duet (const host::Bundle& bundle, host::NamedHost& hostContext);

    void Start (double rateHz, int maxBlockSize, Mode mode); ///< stops first where it runs
    void Stop ();
    void Resume (); ///< after Stop, as it was set up
    void SetFromController (Change change);
    /// @param queue  the values of one parameter stand in a row; they take ascending places in the block
    void Process (std::span<const float> input, std::span<const Change> queue = {});
    /// Compares what the controller answers for every parameter.
    void CompareParameters ();

    // What became of it all. Full scale is 1; a difference is told in parts of the model's sample where that is
    // larger, since a float cannot tell samples of some ten times full scale apart by less than 1e-6.
    double largestDifference = 0.0;
    double loudestSample = 0.0;
    std::size_t samples = 0;
    std::size_t unequalMeters = 0, unequalParameters = 0;

private:
    void CompareMeters (std::span<const host::ParameterPoint> points);

    host::PluginInstance instance;
    InstanceModel model;
    Mode blockMode = Mode::kRealtime;
    bool running = false;
    std::vector<float> played, expected;
};

} // namespace tessaly::model
