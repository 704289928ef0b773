#pragma once

#include "bundle.h"
#include "instance_model.h"
#include "named_host.h"
#include "plugin_instance.h"

namespace tessaly::model
{

/// One instance of the bundle and one model, driven alike block by block; keeps count of where they differ.
class BundleVsModel
{
public:
    /// @param hostContext  not owned: the caller, outlives this
    BundleVsModel (const host::Bundle& bundle, host::NamedHost& hostContext)
        : instance (bundle, hostContext)
    {
    }

    void Start (double rateHz, int maxBlockSize, Mode mode)
    {
        blockMode = mode;
        instance.Setup (rateHz, maxBlockSize, static_cast<Steinberg::int32> (mode));
        model.Setup (rateHz);
        SetActive (true);
    }

    void SetActive (bool active) ///< as it was set up
    {
        active ? instance.Activate () : instance.Deactivate ();
        model.SetActive (active);
    }

    void SetFromController (Change change)
    {
        instance.Parameters ().SetNormalized (change.parameter, change.value);
        model.SetFromController (change);
    }

    /// @param queue  the values of one parameter stand in a row; they take ascending places in the block
    void Process (std::span<const float> input, std::span<const Change> queue = {})
    {
        // Twice full scale in front: a block that comes back untouched is no match.
        std::vector<float> played (std::max<std::size_t> (input.size (), 1), 2.0f);
        std::vector<float> expected (input.size ());
        const float* const in = input.data ();
        float* const out = played.data ();
        const auto size = static_cast<Steinberg::int32> (input.size ());
        std::vector<host::ParameterPoint> points;
        for (const auto& [id, value] : queue)
            points.push_back ({ id, value, std::min (static_cast<int> (points.size ()), std::max (size, 1) - 1) });
        std::vector<host::ParameterPoint> answers;
        instance.Process ({ { &in, 1 }, { &out, 1 }, size, points }, &answers);
        model.Process (queue, blockMode, input, expected);

        for (std::size_t i = 0; i < input.size (); ++i)
        {
            const double level = std::abs (expected[i]);
            const double difference = std::abs (static_cast<double> (played[i]) - expected[i]) / std::max (level, 1.0);
            loudestSample = std::max (loudestSample, level);
            if (!(difference <= largestDifference)) // so that a NaN counts as the largest
                largestDifference = difference;
        }
        constexpr Steinberg::Vst::ParamID kFirstMeterId = 0x10000000;
        const auto isMeter = [&] (unsigned i)
        {
            return answers[i].id == kFirstMeterId + i && answers[i].sampleOffset == 0 &&
                   answers[i].value == static_cast<double> (model.Meters ()[i]);
        };
        unequalMeters += !(answers.size () == 2 && isMeter (0) && isMeter (1));
    }

    /// Compares what the controller answers for every parameter.
    void CompareParameters ()
    {
        for (unsigned i = 0; i < kParameterCount; ++i)
            unequalParameters += instance.Parameters ().Normalized (i) != model.Shown ()[i];
    }

    // What became of it all. Full scale is 1; a difference is told in parts of the model's sample where that is
    // larger, since a float cannot tell samples of some ten times full scale apart by less than 1e-6.
    double largestDifference = 0.0;
    double loudestSample = 0.0;
    int unequalMeters = 0, unequalParameters = 0;

private:
    host::PluginInstance instance;
    InstanceModel model;
    Mode blockMode = Mode::kRealtime;
};

} // namespace tessaly::model
