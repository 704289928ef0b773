#include "output_format.h"

#include "input_file.h"
#include "render_error.h"
#include "text.h"

#include <algorithm>
#include <array>
#include <sndfile.h>
#include <string_view>

namespace tessaly::render
{

namespace
{

struct Container
{
    std::string_view name;
    std::string_view shown;
    int code;
};

constexpr std::array kContainers{
    Container{ "wav", "WAV", SF_FORMAT_WAV },    Container{ "flac", "FLAC", SF_FORMAT_FLAC },
    Container{ "aiff", "AIFF", SF_FORMAT_AIFF }, Container{ "au", "AU", SF_FORMAT_AU },
    Container{ "wave", "WAV", SF_FORMAT_WAV },   Container{ "aif", "AIFF", SF_FORMAT_AIFF },
};

struct Samples
{
    std::string_view name;
    std::string_view shown;
    int code;
    int bytes;
    int integerBits; // 0 for floats
};

constexpr std::array kSamples{
    Samples{ "16", "16-bit", SF_FORMAT_PCM_16, 2, 16 },
    Samples{ "24", "24-bit", SF_FORMAT_PCM_24, 3, 24 },
    Samples{ "32", "32-bit", SF_FORMAT_PCM_32, 4, 32 },
    Samples{ "float", "32-bit float", SF_FORMAT_FLOAT, 4, 0 },
    Samples{ "double", "64-bit float", SF_FORMAT_DOUBLE, 8, 0 },
};

constexpr std::string_view kChoice = "wav, flac, aiff or au, with :16, :24, :32, :float or :double";

template <typename Table>
auto* FindIn (const Table& table, std::string_view name)
{
    for (const auto& row : table)
        if (row.name == name)
            return &row;
    return static_cast<decltype (&table[0])> (nullptr);
}

const Container& ContainerOfExtension (const std::filesystem::path& file)
{
    if (IsStream (file))
        return kContainers.front ();
    const std::string extension = Lowered (file.extension ().string ());
    const auto* container = extension.empty () ? nullptr : FindIn (kContainers, extension.substr (1));
    if (!container)
        throw RenderError ("the name \"" + file.string () +
                           "\" does not tell a format; end it in .wav, .flac, .aiff or .au, or say --format");
    return *container;
}

struct Choice
{
    const Container* container = nullptr; // null where the text tells samples alone
    const Samples* samples = nullptr;     // null where it tells a container alone
};

std::optional<Choice> ReadChoice (const std::string& wanted)
{
    const std::string text = Lowered (wanted);
    const std::size_t colon = text.find (':');
    Choice choice;
    choice.container = FindIn (kContainers, text.substr (0, colon));
    if (colon != std::string::npos)
        choice.samples = FindIn (kSamples, text.substr (colon + 1));
    else if (!choice.container)
        choice.samples = FindIn (kSamples, text);

    const bool understood =
        colon == std::string::npos ? choice.container || choice.samples : choice.container && choice.samples;
    return understood ? std::optional (choice) : std::nullopt;
}

bool IsKnownToLibrary (int code)
{
    SF_INFO probe{};
    probe.format = code;
    probe.channels = 1;
    probe.samplerate = 48000;
    return sf_format_check (&probe) != 0;
}

std::string Unheld (const Container& container, const Samples& samples)
{
    return std::string (container.shown) + " does not hold " + std::string (samples.shown) +
           " samples; choose another --format";
}

/// The samples of the input, or the nearest that lose nothing which the container can hold.
const Samples& SamplesLike (int input, const Container& container)
{
    const int samples = input & SF_FORMAT_SUBMASK;
    constexpr std::array kOfSixteenBits{ SF_FORMAT_PCM_S8, SF_FORMAT_PCM_U8,   SF_FORMAT_ULAW,
                                         SF_FORMAT_ALAW,   SF_FORMAT_MS_ADPCM, SF_FORMAT_IMA_ADPCM };
    const auto is = [samples] (int code) { return samples == code; };
    for (const Samples& row : kSamples)
        if (is (row.code) && IsKnownToLibrary (container.code | row.code))
            return row;
    if (std::ranges::any_of (kOfSixteenBits, is))
        return *FindIn (kSamples, "16");
    return *FindIn (kSamples, container.code == SF_FORMAT_FLAC ? "24" : "float");
}

} // namespace

std::string FormatFault (const std::string& wanted)
{
    const auto choice = ReadChoice (wanted);
    if (!choice)
        return "there is no format \"" + wanted + "\"; choose " + std::string (kChoice);
    if (choice->container && choice->samples && !IsKnownToLibrary (choice->container->code | choice->samples->code))
        return Unheld (*choice->container, *choice->samples);
    return "";
}

OutputFormat ChooseOutputFormat (const std::filesystem::path& file, const std::optional<std::string>& wanted, int input)
{
    const Choice choice = wanted ? ReadChoice (*wanted).value_or (Choice{}) : Choice{};
    const Container& container = choice.container ? *choice.container : ContainerOfExtension (file);
    const Samples& samples = choice.samples ? *choice.samples : SamplesLike (input, container);

    int code = container.code | samples.code;
    if (!IsKnownToLibrary (code))
        throw RenderError (Unheld (container, samples));
    // A WAV file says which loudspeaker a channel is for in its extended form alone.
    if (container.code == SF_FORMAT_WAV && (input & SF_FORMAT_TYPEMASK) == SF_FORMAT_WAVEX)
        code = SF_FORMAT_WAVEX | samples.code;
    return { .code = code,
             .description = std::string (container.shown) + ", " + std::string (samples.shown),
             .bytesPerSample = samples.bytes,
             .integerBits = samples.integerBits };
}

} // namespace tessaly::render
