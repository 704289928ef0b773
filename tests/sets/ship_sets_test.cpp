#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "loudness.h"
#include "recording.h"
#include "temp_folder.h"
#include <algorithm>
#include <cmath>
#include <doctest/doctest.h>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace tessaly;
using namespace tessaly::test;
namespace fs = std::filesystem;

namespace
{

constexpr float kSanePeak = 3.98f;  // +12 dBFS, with a recording whose own peak is 0 dBFS
constexpr double kSteadyWithin = 6; // dB of loudness, from key point to key point
constexpr std::int32_t kPositions = 121;
constexpr std::int32_t kDrive = 0;
constexpr std::int32_t kMorph = 20;

/// What each set is tried on: of the first entry that its place in the collection begins with.
const std::pair<std::string_view, const char*> kRecordings[]{
    { "voice/", kVoice },
    { "drums/Kick", "/usr/share/sonic-pi/samples/drum_heavy_kick.flac" },
    { "drums/Snare", "/usr/share/sonic-pi/samples/drum_snare_hard.flac" },
    { "drums/Overheads", "/usr/share/sonic-pi/samples/drum_cymbal_open.flac" },
    { "drums/", "/usr/share/sonic-pi/samples/loop_breakbeat.flac" },
    { "bass/", "/usr/share/sonic-pi/samples/bass_thick_c.flac" },
    { "guitar/", "/usr/share/sonic-pi/samples/guit_em9.flac" },
    { "keys/Soft Pads", "/usr/share/sonic-pi/samples/ambi_choir.flac" },
    { "keys/", "/usr/share/sonic-pi/samples/ambi_piano.flac" },
    { "bus/", "/usr/share/sonic-pi/samples/loop_amen_full.flac" },
};

constexpr const char* kBuiltIn = "01 Basic"; // ships as a file, too, so that the dialog leads back to it

/// The sets by their place in the collection, without extension; but for the built-in one.
std::map<std::string, fs::path> Sets ()
{
    std::map<std::string, fs::path> sets;
    for (const auto& entry : fs::recursive_directory_iterator (TESSALY_SETS_DIR))
        if (entry.is_regular_file () && entry.path ().extension () == ".kpd")
            sets[fs::relative (entry.path (), TESSALY_SETS_DIR).replace_extension ().generic_string ()] = entry.path ();
    sets.erase (kBuiltIn);
    return sets;
}

/// Above any sane level for a sample that is no finite number.
float Peak (std::span<const float> samples)
{
    float peak = 0.0f;
    for (const float sample : samples)
        peak = std::isfinite (sample) ? std::max (peak, std::abs (sample)) : 1e9f;
    return peak;
}

/// A second and a half of one channel, its peak at full scale; what is shorter is played again.
Recording Excerpt (std::string_view place)
{
    const auto* entry = std::find_if (std::begin (kRecordings), std::end (kRecordings),
                                      [place] (const auto& each) { return place.starts_with (each.first); });
    REQUIRE (entry != std::end (kRecordings));
    auto excerpt = Load (entry->second).Channel (0);
    const auto length = static_cast<std::size_t> (excerpt.rateHz) * 3 / 2;
    const auto recorded = excerpt.samples;
    while (excerpt.samples.size () < length)
        excerpt.samples.insert (excerpt.samples.end (), recorded.begin (), recorded.end ());
    excerpt.samples.resize (length);
    const float peak = Peak (excerpt.samples);
    for (float& sample : excerpt.samples)
        sample /= peak;
    return excerpt;
}

/// The effect with its engine, as an instance has them, with a set taken from a file.
class LoadedSet
{
public:
    LoadedSet (const fs::path& file, double rateHz)
    {
        const auto program = ChannelStripProgram ();
        effect.SetStorage (std::make_unique<ZChannel_StripStorage> (), ChannelStripRecords ().data (), &program, 1,
                           kStripParameterCount);
        effect.GetInfo (kCodeStorage, &storage);
        effect.CreateVuBuffer (2);
        effect.SetPluginCore (std::make_unique<Channel_Strip> (&effect));
        effect.SetSampleRate (rateHz);
        effect.SetActive (true);
        const auto bytes = ReadFile (file);
        effect.LoadKeyPointBlock (bytes.data (), static_cast<std::int32_t> (bytes.size ()));
    }

    void SetPlain (std::int32_t index, std::int32_t plain)
    {
        effect.SetParameter (index, storage->PlainToNormalized (index, static_cast<float> (plain)));
    }

    void Process (std::span<float> samples)
    {
        float* channel = samples.data ();
        ZAudioBlock block;
        block.inputs = block.outputs = &channel;
        block.numInputChannels = block.numOutputChannels = 1;
        block.numSamples = static_cast<std::int32_t> (samples.size ());
        REQUIRE (effect.Process (block) == 0);
    }

    ZChannel_StripEffect effect{ nullptr };
    ZParameterStorageBase* storage = nullptr; // not owned: the effect
};

} // namespace

TEST_CASE ("Ship sets: the file of the built-in set holds the built-in set")
{
    const LoadedSet basic (fs::path (TESSALY_SETS_DIR) / (std::string (kBuiltIn) + ".kpd"), 48000.0);
    for (std::uint32_t cell = 0; cell < 9 * kKeyPointColumns; ++cell)
        CHECK (basic.effect.KeyPointStep (cell / kKeyPointColumns, cell % kKeyPointColumns) ==
               builtInKeyPoints.KeyPointStep (cell / kKeyPointColumns, cell % kKeyPointColumns));
}

TEST_CASE ("Ship sets: the dial swept over a recording of its kind stays below +12 dBFS, at any \"Drive\"")
{
    for (const auto& [place, file] : Sets ())
        for (const std::int32_t drive : { 0, 100, 200 })
        {
            CAPTURE (place);
            CAPTURE (drive);
            auto audio = Excerpt (place);
            LoadedSet set (file, audio.rateHz);
            set.SetPlain (kDrive, drive);
            const auto length = audio.samples.size () / kPositions;
            const auto swept = std::span (audio.samples).first (length * kPositions);
            for (std::int32_t position = 0; position < kPositions; ++position)
            {
                set.SetPlain (kMorph, position);
                set.Process (swept.subspan (length * static_cast<std::size_t> (position), length));
            }
            CHECK (Peak (swept) < kSanePeak);
            CHECK (Peak (swept) > 0.1f);
        }
}

TEST_CASE ("Ship sets: from key point to key point the loudness of a recording moves by less than 6 dB")
{
    for (const auto& [place, file] : Sets ())
    {
        CAPTURE (place);
        const auto recorded = Excerpt (place);
        LoadedSet set (file, recorded.rateHz);
        std::vector<double> levels;
        for (std::int32_t position = 0; position < kPositions; position += 15)
        {
            set.SetPlain (kMorph, position);
            auto audio = recorded.samples;
            set.Process (std::span (audio).first (audio.size () / 4)); // settles
            audio = recorded.samples;
            set.Process (audio);
            levels.push_back (Loudness (audio, recorded.rateHz));
        }
        const auto [low, high] = std::minmax_element (levels.begin (), levels.end ());
        CHECK (*high - *low < kSteadyWithin);
    }
}
