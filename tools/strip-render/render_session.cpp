#include "render_session.h"

#include "automation.h"
#include "bundle_search.h"
#include "find_set.h"
#include "panel.h"
#include "parameter_names.h"
#include "render_error.h"
#include "state_chunk.h"
#include "state_file.h"
#include "warning.h"

namespace tessaly::render
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* kHostName = "strip-render";

using State = std::vector<std::byte>;

State ReadOrSalvage (const fs::path& file, const VST3::UID& component, bool allowDamaged)
{
    try
    {
        return host::ReadStateFile (file, component);
    }
    catch (const host::DamagedPreset& error)
    {
        if (!allowDamaged)
            throw host::DamagedPreset (std::string (error.what ()) + "; --allow-damaged takes what is there");
        Warn (error.what ());
        return host::SalvagePreset (file, component);
    }
}

/// @throws RenderError when the state is cut off and that is not allowed
State ReadState (const fs::path& file, const VST3::UID& component, bool allowDamaged)
{
    auto state = ReadOrSalvage (file, component, allowDamaged);
    if (const auto damage = keypoints::StateDamage (state); !damage.empty ())
    {
        const auto text = "\"" + file.string () + "\" is damaged: " + damage;
        if (!allowDamaged)
            throw RenderError (text + "; --allow-damaged takes what is there");
        Warn (text);
    }
    return state;
}

/// What --state and --keypoints make of the state that the plug-in has by itself; nothing where neither is given.
std::optional<State> StartState (const Options& options, const host::Bundle& bundle,
                                 const host::PluginInstance& present)
{
    if (!options.state && !options.keyPoints)
        return std::nullopt;
    const auto state = options.state
                           ? ReadState (*options.state, bundle.FirstAudioEffect ().ID (), options.allowDamaged)
                           : present.SaveState ();
    if (!options.keyPoints)
        return state;
    const auto set = keypoints::FindSet (*options.keyPoints);
    keypoints::TellAlike ("strip-render", set);
    return keypoints::WithKeyPoints (state, set.name, set.table, keypoints::Panel ());
}

} // namespace

RenderSession::RenderSession (const Options& options)
    : host (kHostName)
    , bundle (options.plugin ? *options.plugin : FindBundle ())
    , instance (bundle, host)
    , state (StartState (options, bundle, instance))
{
    if (state)
        instance.LoadState (*state);
    for (const Setting& setting : ReadSettings (options, Parameters ()))
        Parameters ().SetNormalized (setting.id, setting.normalized);
}

std::unique_ptr<host::PendingFile> RenderSession::PrepareState (const fs::path& file, host::Existing existing) const
{
    return host::PrepareStateFile (file, bundle.FirstAudioEffect ().ID (), instance.SaveState (), existing);
}

std::unique_ptr<ChannelBank> RenderSession::MakeBank (const Options& options, int channels, int sampleRateHz)
{
    const std::lock_guard one (making); // the factory takes its host anew for each instance
    auto bank = std::make_unique<ChannelBank> (bundle, host, channels, sampleRateHz, options.blockSize,
                                               options.realtime ? Road::realtime : Road::offline);
    if (state)
        bank->LoadState (*state);
    return bank;
}

std::vector<Setting> ReadSettings (const Options& options, const host::ParameterAccess& parameters)
{
    const ParameterNames names (parameters);
    std::vector<Setting> settings;
    try
    {
        for (const std::string& text : options.settings)
            settings.push_back (ReadSetting (parameters, names, text));
    }
    catch (const RenderError& error)
    {
        throw MistakeInLine (error.what ());
    }
    if (options.bypass)
        settings.push_back (ReadSetting (parameters, names, "Bypass=On"));
    return settings;
}

host::Existing Present (const Options& options)
{
    return options.force ? host::Existing::replace : host::Existing::keep;
}

} // namespace tessaly::render
