#include "host_error.h"
#include "named_host.h"
#include "plugin_instance.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstdio>
#include <ctime>
#include <memory>
#include <random>
#include <sndfile.h>
#include <sstream>
#include <string>
#include <vector>

// Runs VST 3 bundles against each other on the same sound, in turns within one run, since only ratios of such a run
// mean anything. A lane is a chain of mono effects, each with settings by title and normalized value:
//     bundle_race 'PATH/Our.vst3;Drive=0.8' 'PATH/Comp.vst3;Threshold=0.5 + PATH/EQ.vst3'
// Prints the time of a sample of each lane, and the first lane's share of each other one.

namespace
{

using namespace tessaly::host;

constexpr double kSampleRateHz = 48000.0;
constexpr int kRounds = 15;
constexpr std::size_t kSamplesARound = 1 << 17;

std::vector<std::string> Split (const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream (text);
    for (std::string part; std::getline (stream, part, separator);)
    {
        part.erase (0, part.find_first_not_of (' '));
        part.erase (part.find_last_not_of (' ') + 1);
        parts.push_back (part);
    }
    return parts;
}

/// One effect, with its main buses' first channels at work and silence on whatever else it has.
class Racer
{
public:
    Racer (const std::string& description, NamedHost& host, int blockSize)
        : silence (static_cast<std::size_t> (blockSize))
        , spare (silence.size ())
    {
        const auto parts = Split (description, ';');
        instance = std::make_unique<PluginInstance> (Bundle (parts.at (0)), host);
        instance->Setup (kSampleRateHz, blockSize, Steinberg::Vst::kRealtime);
        instance->Activate ();
        for (std::size_t i = 1; i < parts.size (); ++i)
            Set (parts[i]);
    }

    void Process (const float* in, float* out, int count)
    {
        const float* inputs[] = { in, silence.data () };
        float* outputs[] = { out, spare.data () };
        instance->Process ({ .inputs = inputs, .outputs = outputs, .numSamples = count, .points = points });
        points.clear ();
    }

private:
    void Set (const std::string& setting)
    {
        const auto equals = setting.find ('=');
        const std::string title = setting.substr (0, equals);
        const double value = std::stod (setting.substr (equals + 1));
        for (const auto& parameter : instance->Parameters ().List ())
            if (parameter.title == title)
            {
                // By both roads: some effects listen to one of them only.
                instance->Parameters ().SetNormalized (parameter.id, value);
                points.push_back ({ parameter.id, value });
                return;
            }
        throw HostError ("no parameter \"" + title + "\"");
    }

    std::vector<float> silence;
    std::vector<float> spare;
    std::unique_ptr<PluginInstance> instance;
    std::vector<ParameterPoint> points; // of the next block
};

struct Lane
{
    std::string name;
    std::vector<std::unique_ptr<Racer>> chain;
    std::vector<double> nanoseconds; // a sample, one a round
};

std::vector<float> Noise ()
{
    std::minstd_rand generator (1);
    std::uniform_real_distribution<float> level (-0.25F, 0.25F);
    std::vector<float> samples (kSamplesARound);
    std::generate (samples.begin (), samples.end (), [&] { return level (generator); });
    return samples;
}

/// The first channel of a recording, repeated.
std::vector<float> Recording (const std::string& path)
{
    SF_INFO info{};
    SNDFILE* file = sf_open (path.c_str (), SFM_READ, &info);
    if (file == nullptr)
        throw HostError ("cannot read \"" + path + "\"");
    std::vector<float> frames (static_cast<std::size_t> (info.frames * info.channels));
    sf_readf_float (file, frames.data (), info.frames);
    sf_close (file);
    std::vector<float> samples (kSamplesARound);
    const auto channels = static_cast<std::size_t> (info.channels);
    for (std::size_t i = 0; i < samples.size (); ++i)
        samples[i] = frames[(i * channels) % frames.size ()];
    return samples;
}

/// The processor time of this thread: what else runs on the machine does not count.
double ThreadSeconds ()
{
    timespec now{};
    clock_gettime (CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double> (now.tv_sec) + static_cast<double> (now.tv_nsec) * 1e-9;
}

void Run (Lane& lane, const std::vector<float>& sound, int blockSize)
{
    std::vector<float> block (static_cast<std::size_t> (blockSize));
    const double begin = ThreadSeconds ();
    for (std::size_t at = 0; at + block.size () <= sound.size (); at += block.size ())
    {
        const float* in = sound.data () + at;
        for (const auto& racer : lane.chain)
        {
            racer->Process (in, block.data (), blockSize);
            in = block.data ();
        }
    }
    lane.nanoseconds.push_back ((ThreadSeconds () - begin) * 1e9 / static_cast<double> (sound.size ()));
}

double Median (std::vector<double> values)
{
    std::nth_element (values.begin (), values.begin () + static_cast<std::ptrdiff_t> (values.size () / 2),
                      values.end ());
    return values[values.size () / 2];
}

} // namespace

int main (int argc, char** argv)
{
    CLI::App app ("Races VST 3 bundles against each other on the same sound.");
    std::vector<std::string> descriptions;
    std::string input = "noise";
    int blockSize = 64;
    app.add_option ("LANE", descriptions, "Chains of bundles: 'A.vst3;Title=0.5;... + B.vst3;...'")->required ();
    app.add_option ("--input", input, "noise (white, peak 0.25) or a recording");
    app.add_option ("--block", blockSize, "Samples a block")->check (CLI::Range (1, 65536));
    CLI11_PARSE (app, argc, argv);
    try
    {
        NamedHost host ("bundle_race");
        const auto sound = input == "noise" ? Noise () : Recording (input);
        std::vector<Lane> lanes;
        for (const auto& description : descriptions)
        {
            Lane lane{ description, {}, {} };
            for (const auto& part : Split (description, '+'))
                lane.chain.push_back (std::make_unique<Racer> (part, host, blockSize));
            lanes.push_back (std::move (lane));
        }
        for (int round = 0; round < kRounds; ++round)
            for (Lane& lane : lanes)
                Run (lane, sound, blockSize);
        for (const Lane& lane : lanes)
            std::printf ("%8.2f ns a sample   ratio %.3f   %s\n", Median (lane.nanoseconds),
                         Median (lanes[0].nanoseconds) / Median (lane.nanoseconds), lane.name.c_str ());
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf (stderr, "bundle_race: %s\n", error.what ());
        return 1;
    }
}
