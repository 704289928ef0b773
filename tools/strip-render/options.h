#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessaly::render
{

/// Silence to run through the plug-in after the recording.
struct Tail
{
    double seconds = 0.0;
    bool full = false; ///< as long as the plug-in says that it sounds; `seconds` is then not looked at
};

/// The command line, read and checked as far as it can be without files and without the plug-in.
struct Options
{
    std::filesystem::path input;                    ///< empty: nothing to render
    std::filesystem::path output;                   ///< empty: nothing to render
    std::optional<std::filesystem::path> state;     ///< to begin with, ahead of the settings
    std::optional<std::string> keyPoints;           ///< file or name of a set to use, ahead of the settings
    std::optional<std::filesystem::path> saveState; ///< where to write the state that the settings make
    std::vector<std::string> settings;              ///< each NAME=VALUE, in the order given
    std::optional<std::filesystem::path> automation;
    std::optional<std::filesystem::path> meters;
    std::optional<std::filesystem::path> plot; ///< levels and gain reduction over time, as a picture
    std::optional<std::filesystem::path> plugin;
    std::optional<std::string> format;
    Tail tail;
    double mix = 1.0;    ///< part of the strip in the result, the rest being the recording; 0 to 1
    int blockSize = 512; ///< frames, 1 to 65536
    bool realtime = false;
    bool bypass = false;
    bool list = false;
    bool force = false;         ///< files that are there may be replaced
    bool allowDamaged = false;  ///< of a recording or a state that is cut off, what is there counts
    bool failOnClip = false;    ///< a result that is cut at full scale is none
    bool dither = true;         ///< results of 16 bits
    bool loudness = false;      ///< the summary tells it, of recording and result
    bool matchLoudness = false; ///< the result is made as loud as the recording
    bool quiet = false;         ///< no summary and no progress
    bool json = false;          ///< summary and list for programs
    bool dryRun = false;        ///< everything is read and checked, nothing rendered and written

    std::vector<std::filesystem::path> batch; ///< files and folders to render into outFolder
    std::filesystem::path outFolder;          ///< empty: no batch
    int jobs = 1;                             ///< of a batch, 1 and up
    bool recursive = false;                   ///< folders of a batch with all that is below them
    bool skipExisting = false;                ///< files of a batch that are there already are done

    bool RendersBatch () const { return !outFolder.empty (); }
    bool Renders () const { return !output.empty (); }
};

/// What the command line comes to: options to go on with, or the exit status of a call that has ended (help, version,
/// a mistake in the line; its text is printed).
struct ParsedOptions
{
    std::optional<Options> options;
    int exitStatus = 0;
};

ParsedOptions ParseOptions (int argc, const char* const* argv);

} // namespace tessaly::render
