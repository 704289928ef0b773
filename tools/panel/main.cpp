#include "key_point_folders.h"
#include "memory_stream.h"
#include "options.h"
#include "panel_stage.h"
#include "picture_files.h"
#include "script_error.h"
#include "set_file.h"
#include "state_file.h"
#include "strip_state.h"
#include "strip_text_analyzer.h"
#include "text.h"

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace tessaly::stage
{

namespace
{

constexpr std::uint32_t kSettleMs = 500; // the morph dial's picture takes a few ticks to arrive

std::string ReadText (const std::filesystem::path& path)
{
    std::ifstream file (path, std::ios::binary);
    std::string text{ std::istreambuf_iterator<char> (file), {} };
    if (!file)
        throw std::runtime_error ("\"" + path.string () + "\" can't be read");
    return text;
}

void RestoreState (PanelStage& panel, const std::filesystem::path& path)
{
    auto chunk = host::ReadStateFile (path);
    // The effect's own part, which holds all values once more, ends the chunk.
    const auto size = std::min (chunk.size (), static_cast<std::size_t> (kStripTreeBytes));
    ZMemoryStream stream (chunk.data () + (chunk.size () - size), static_cast<std::int32_t> (size),
                          static_cast<std::int32_t> (size));
    panel.Effect ().ReadState (&stream);
    if (!panel.Effect ().StateFault ().empty ())
        throw std::runtime_error ("\"" + path.string () + "\" is damaged: " + panel.Effect ().StateFault ());
}

void LoadSet (PanelStage& panel, const std::filesystem::path& path)
{
    const auto bytes = keypoints::ToBytes (keypoints::ReadSetFile (path));
    auto& effect = panel.Effect ();
    effect.LoadKeyPointBlock (bytes.data (), static_cast<std::int32_t> (bytes.size ()));
    effect.SetKeyPointName (path.stem ().string ().c_str ());
    effect.ApplyMorph (20, panel.Value (20));
}

/// NAME=VALUE, the value as it is typed on the panel; a switch or list takes its step.
void Apply (PanelStage& panel, const std::string& setting)
{
    const auto sign = setting.find ('=');
    if (sign == std::string::npos)
        throw std::runtime_error ("\"" + setting + "\" is no NAME=VALUE");
    const auto id = panel.FindParameter (PanelStage::PlaceName (Trimmed (setting.substr (0, sign))));
    if (!id)
        throw std::runtime_error ("there is no parameter \"" + setting.substr (0, sign) + "\"");
    std::string value (Trimmed (setting.substr (sign + 1)));
    const auto isSwitch = panel.Storage ().GetType (*id) != 0;
    ZRatioTextAnalyzer ratio (static_cast<std::uint32_t> (*id));
    ZK2XTextAnalyzer plain (static_cast<std::uint32_t> (*id));
    ZK2XTextAnalyzer& analyzer = *id == 3 ? ratio : plain;
    if (isSwitch || *id == 20 ? !ToNumber (value) : !analyzer.IsValid (value.data ()))
        throw std::runtime_error ("\"" + value + "\" is no value");
    const auto step =
        isSwitch || *id == 20 ? static_cast<float> (*ToNumber (value)) : analyzer.ToValue (value.c_str ());
    panel.SetValue (*id, panel.Storage ().PlainToNormalized (*id, step));
}

void PrintControls (PanelStage& panel)
{
    for (std::int32_t y = 0; y < layout::kPanelHeight; ++y)
        for (std::int32_t x = 0; x < layout::kPanelWidth;)
        {
            const auto id = panel.Window ().PaneIdAt ({ x, y });
            const auto first = x;
            while (x < layout::kPanelWidth && panel.Window ().PaneIdAt ({ x, y }) == id)
                ++x;
            if (id != kNewPaneId)
                std::cout << y << ' ' << first << ' ' << x - 1 << ' ' << id << '\n';
        }
}

void Run (const PanelOptions& options)
{
    PanelStage panel (options.scale, [&] { return MakeCollection (options.collection); });
    if (options.state)
        RestoreState (panel, *options.state);
    if (options.set)
        LoadSet (panel, *options.set);
    for (const auto& setting : options.settings)
        Apply (panel, setting);
    panel.Window ().Wait (kSettleMs);

    Pictures pictures;
    const auto snap = [&] (const std::string& name)
    {
        if (!pictures.emplace (name, panel.Window ().Picture ()).second)
            throw ScriptError ("there is a picture \"" + name + "\" already");
    };
    if (options.script)
        Play (ReadText (*options.script), panel, snap);
    snap (options.name);
    WritePictures (pictures, options.output);
    if (options.listControls)
        PrintControls (panel);
}

} // namespace

} // namespace tessaly::stage

int main (int argc, char** argv)
{
    using namespace tessaly::stage;
    try
    {
        const auto parsed = ParsePanelOptions (argc, argv);
        if (!parsed.options)
            return parsed.exitStatus;
        Run (*parsed.options);
        if (std::cout.flush ())
            return EXIT_SUCCESS;
        std::cerr << "panel: what was to be printed could not be written\n";
    }
    catch (const std::exception& error)
    {
        std::cerr << "panel: " << error.what () << '\n';
    }
    return EXIT_FAILURE;
}
