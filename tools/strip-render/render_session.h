#pragma once

#include "channel_bank.h"
#include "options.h"
#include "pending_file.h"
#include "setting.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tessaly::render
{

/// The plug-in, loaded once for all renders of a call, and an instance of it as --state, --keypoints and --set make it.
/// Main thread but for MakeBank.
class RenderSession
{
public:
    /// @throws RenderError, HostError, SetError when the plug-in is not found, or an option cannot be obeyed
    explicit RenderSession (const Options& options);

    host::ParameterAccess Parameters () const { return instance.Parameters (); }

    /// Writes the instance's state, to be committed. @throws HostError
    std::unique_ptr<host::PendingFile> PrepareState (const std::filesystem::path& file, host::Existing existing) const;

    /// Instances for a recording, in the state that --state and --keypoints make. Any thread.
    std::unique_ptr<ChannelBank> MakeBank (const Options& options, int channels, int sampleRateHz);

    /// To hold while the texts of parameters or classes are asked for: the SDK converts all of them with one converter,
    /// which two threads must not use at once. MakeBank holds it by itself.
    std::unique_lock<std::mutex> LockTexts () { return std::unique_lock (making); }

private:
    host::NamedHost host; // the bundle's factory keeps it to its end
    host::Bundle bundle;
    host::PluginInstance instance;
    std::optional<std::vector<std::byte>> state; // nothing where no option asks for one
    std::mutex making;
};

/// The settings of --set and --bypass. @throws RenderError
std::vector<Setting> ReadSettings (const Options& options, const host::ParameterAccess& parameters);

/// What --force makes of files that are there.
host::Existing Present (const Options& options);

} // namespace tessaly::render
