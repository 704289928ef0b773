#include "panel_stage.h"

#include "canvas_text_edit_imp.h"
#include "channel_strip.h"
#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "result.h"
#include "script_error.h"
#include "skin_bitmaps.h"
#include "text.h"
#include "text_buffer.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace tessaly::stage
{

using namespace layout;

namespace
{

struct NamedPlace
{
    std::string_view name;
    ZRect rect;
};

constexpr std::array kPlaces{ NamedPlace{ "at", {} },
                              NamedPlace{ "drive", kDriveDial },
                              NamedPlace{ "text-drive", kDriveText.frame },
                              NamedPlace{ "morph", At (240, 214, 80, 80) },
                              NamedPlace{ "knee", kKneeSwitch },
                              NamedPlace{ "comp-graph", kCompGraph },
                              NamedPlace{ "eq-graph", kEqGraph },
                              NamedPlace{ "equalizer-bypass", kEqBypass.pressArea },
                              NamedPlace{ "compressor-bypass", kCompBypass.pressArea },
                              NamedPlace{ "name", kNameButton },
                              NamedPlace{ "list", kDialogItems[2].rect },
                              NamedPlace{ "ok", kDialogItems[0].rect },
                              NamedPlace{ "cancel", kDialogItems[1].rect },
                              NamedPlace{ "about", kAboutOpenArea } };

template <typename Places>
std::optional<ZRect> PlaceIn (const Places& places, std::int32_t id)
{
    for (const auto& place : places)
        if (IndexOf (place.parameter) == id)
        {
            if constexpr (requires { place.frame; })
                return place.frame;
            else
                return At (place.topLeft.x, place.topLeft.y, kSmallDialSize, kSmallDialSize);
        }
    return std::nullopt;
}

} // namespace

PanelStage::PanelStage (double scale, KPRD_MakeBackEnd collection)
    : window (kPanelWidth, kPanelHeight, scale)
    , measuring (window.Surface ())
    , meters (kScriptMeters, 0.0f)
    , editor (*this)
    , effect (this)
{
    const auto records = ChannelStripRecords ();
    const auto program = ChannelStripProgram ();
    auto strips = std::make_unique<ZChannel_StripStorage> (std::move (collection));
    storage = strips.get ();
    effect.SetStorage (std::move (strips), records.data (), &program, 1, kStripParameterCount);
    effect.SetPluginCore (std::make_unique<Channel_Strip> (&effect));
    effect.Initialize ();
    window.Open (editor);
}

PanelStage::~PanelStage ()
{
    editor.Close (); // before the effect that it looks at
}

std::int32_t PanelStage::Step (std::int32_t id)
{
    return static_cast<std::int32_t> (std::lround (storage->GetPlain (id)));
}

std::string PanelStage::TextOf (std::int32_t id)
{
    ZText text{};
    storage->GetValueText (id, text.data (), static_cast<std::int32_t> (text.size ()) - 1);
    return text.data ();
}

void PanelStage::SetStep (std::int32_t id, std::int32_t step)
{
    SetValue (id, storage->PlainToNormalized (id, static_cast<float> (step)));
}

std::string PanelStage::PlaceName (std::string_view title)
{
    auto name = Lowered (title);
    std::replace (name.begin (), name.end (), ' ', '-');
    return name;
}

std::optional<std::int32_t> PanelStage::FindParameter (std::string_view name) const
{
    for (std::int32_t id = 0; id < kStripParameterCount; ++id)
    {
        ZText title{};
        storage->GetName (id, title.data (), static_cast<std::int32_t> (title.size ()) - 1); // and a zero behind
        if (!name.empty () && PlaceName (title.data ()) == name)                             // two have no name
            return id;
    }
    return std::nullopt;
}

std::optional<ZRect> PanelStage::PlaceOf (std::string_view name) const
{
    for (const auto& place : kPlaces)
        if (name == place.name)
            return place.rect;
    constexpr std::string_view kText = "text-";
    const auto isText = name.substr (0, kText.size ()) == kText;
    const auto id = FindParameter (isText ? name.substr (kText.size ()) : name);
    if (!id)
        return std::nullopt;
    if (isText)
    {
        const auto place = PlaceIn (kCompTexts, *id);
        return place ? place : PlaceIn (kEqTexts, *id);
    }
    const auto place = PlaceIn (kCompDials, *id);
    return place ? place : PlaceIn (kEqDials, *id);
}

void PanelStage::SetParameter (std::string_view name, double step)
{
    const auto id = FindParameter (name);
    if (!id)
        throw ScriptError ("there is no parameter \"" + std::string (name) + "\"");
    if (step < storage->GetMinimum (*id) || step > storage->GetMaximum (*id))
        throw ScriptError ("that step is beyond the range of \"" + std::string (name) + "\"");
    SetStep (*id, static_cast<std::int32_t> (std::lround (step)));
    window.Settle ();
}

bool PanelStage::GetInfo (std::int32_t kind, void* out)
{
    if (kind != kCodeVuBuffer)
        return effect.GetInfo (kind, out);
    *static_cast<ZVuBuffer**> (out) = &meters; // not the engine's: scripts say what meters show
    return true;
}

void PanelStage::SetParameter (std::int32_t id, float value)
{
    written.emplace_back (id, value);
    effect.SetParameter (id, value);
}

std::unique_ptr<ZBitmapImp> PanelStage::CreateBitmap (std::string_view name)
{
    return CreateSkinBitmap (name, window.Surface ().GetScale ());
}

std::unique_ptr<ZTextEditImp> PanelStage::CreateTextEditImp ()
{
    return std::make_unique<ZCanvasTextEditImp> (measuring, &clipboard);
}

std::int32_t PanelStage::GetHostName (char* /*buffer*/)
{
    return kFailed;
}

} // namespace tessaly::stage
