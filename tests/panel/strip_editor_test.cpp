#include "channel_strip_parameters.h"
#include "kprd_collection.h"
#include "panel_ids.h"
#include "panel_stage.h"
#include "pixel_picture.h"
#include "result.h"

#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace tessaly;
using namespace tessaly::layout;
using stage::PanelStage;
using test::Picture;

namespace
{

constexpr auto Id (StripParameter parameter)
{
    return IndexOf (parameter);
}

ZPoint Middle (const ZRect& rect)
{
    return { (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2 };
}

/// A panel and what a user does to it, at scale 1.
class Panel : public PanelStage
{
public:
    explicit Panel (KPRD_MakeBackEnd collection = {})
        : PanelStage (1.0, std::move (collection))
    {
    }

    ZPoint At (std::string_view place) const { return Middle (PlaceOf (place).value ()); }
    std::int32_t HitAt (std::string_view place) { return Window ().PaneIdAt (At (place)); }
    void Press (ZPoint point, std::int32_t modifiers = 0)
    {
        Window ().Point (point);
        Window ().Press (kLeftButton, modifiers);
    }
    void Press (std::string_view place) { Press (At (place)); }
    void Click (std::string_view place)
    {
        Press (place);
        Window ().Release ();
    }
    void Wheel (ZPoint point, std::int32_t delta)
    {
        Window ().Point (point);
        Window ().Settle ();
        Window ().Wheel (delta);
    }
    void Wait (std::uint32_t milliseconds) { Window ().Wait (milliseconds); }
    Picture Shown () { return Picture (Window ().Surface ()); }
    bool Looks (const Picture& before, const ZRect& rect)
    {
        return Shown ().Part (rect).IsLike (before.Part (rect), 0);
    }
};

ZRect DialRect (const SmallDialPlace& place)
{
    return layout::At (place.topLeft.x, place.topLeft.y, kSmallDialSize, kSmallDialSize);
}

/// Two sets: one flat, all key points of 40 steps; one with a step beyond its parameter's range.
class TwoSets final : public KPRD_CollectionImp
{
public:
    void Load (KPRD_Entries& list) override
    {
        Add (list, "flat", 40);
        Add (list, "wild", 300); // "Attack" ends at 283
    }

private:
    static void Add (KPRD_Entries& list, const char* name, std::int16_t step)
    {
        auto* const bytes = list.emplace_back (std::make_unique<KPRD_Data> ())->SetFile (name, 512);
        std::copy_n ("KPRD", 4, bytes);
        for (int row = 0; row < 9; ++row)
            for (int column = 0; column < 17; ++column)
            {
                auto* const cell = bytes + 32 + row * 40 + column * 2; // high byte first
                cell[0] = static_cast<std::uint8_t> (step >> 8);
                cell[1] = static_cast<std::uint8_t> (step & 0xFF);
            }
    }
};
KPRD_MakeBackEnd MakeTwoSets ()
{
    return [] { return std::make_unique<TwoSets> (); };
}

constexpr ZPoint kBench{ 420, 300 }; // nothing is there
constexpr ZRect kOverlayLine = layout::At (240, 200, 80, 8);

} // namespace

TEST_CASE ("Strip editor: what is painted bit by bit equals a full pass")
{
    for (const double scale : { 1.0, 1.25, 2.0 })
    {
        CAPTURE (scale);
        PanelStage panel (scale, MakeTwoSets ());
        const auto check = [&] (const std::string& where)
        {
            CAPTURE (where);
            const Picture before (panel.Window ().Surface ());
            panel.Editor ().Invalidate (true);
            panel.Window ().Paint ();
            CHECK (Picture (panel.Window ().Surface ()).IsLike (before, 0));
        };
        stage::Play (R"(
            snap rest
            point attack
            press
            idle 400
            drag 30 -30
            snap ring
            release
            idle 400
            click morph 20 20
            snap morph
            idle 3000
            set equalizer-bypass 1
            snap eq-off
            set compressor-bypass 1
            snap both-off
            set equalizer-bypass 0
            set compressor-bypass 0
            level 0 0.5
            level 1 0.9
            idle 200
            snap meters
            click name
            click list -60 -100
            snap dialog
            click ok
            idle 500
            snap chosen
            click about
            snap about
            click about
            idle 200
            snap closed
            double text-mid-g
            type 3.5
            snap field
            key return
            idle 100
            snap typed
        )",
                     panel, check);
    }
}

TEST_CASE ("Strip editor: holding \"Morph\" lights everything that it moves")
{
    Panel panel;
    panel.Wait (600);
    const auto before = panel.Shown ();
    panel.Press ("morph");
    for (const auto& place : kCompDials)
        CHECK_FALSE (panel.Looks (before, DialRect (place)));
    for (const auto& place : kEqTexts)
        CHECK_FALSE (panel.Looks (before, place.frame));
    CHECK_FALSE (panel.Looks (before, kKneeSwitch));
    CHECK_FALSE (panel.Looks (before, kBandLeds[1].frame));
    CHECK_FALSE (panel.Looks (before, kOverlayLine));
    CHECK (panel.Looks (before, layout::At (180, 170, 44, 30))); // not "Drive"
    CHECK (panel.Looks (before, kDriveText.frame));

    panel.Window ().Release ();
    panel.Press ("drive"); // another control takes the touch
    CHECK (panel.Looks (before, kOverlayLine));
    CHECK (panel.Looks (before, kEqTexts[0].frame));
    CHECK_FALSE (panel.Looks (before, kDriveText.frame));
    panel.Window ().Release ();
    panel.Wait (2100); // or the hold time passes
    CHECK (panel.Looks (before, kDriveText.frame));
}

TEST_CASE ("Strip editor: a bypassed section is off, \"Drive\" stays live")
{
    Panel panel;
    panel.SetValue (Id (StripParameter::compressorBypass), 1.0f);
    panel.Wait (60);
    for (const auto* off : { "attack", "text-ratio", "knee" })
        CHECK (panel.HitAt (off) == kNewPaneId);
    for (const auto* live : { "drive", "text-drive", "mid-g", "total-gain", "text-total-gain" })
        CHECK (panel.HitAt (live) != kNewPaneId);

    SUBCASE ("\"Total Gain\" goes off with the second section")
    {
        panel.SetValue (Id (StripParameter::equalizerBypass), 1.0f);
        panel.Wait (60);
        for (const auto* off : { "total-gain", "text-total-gain", "mid-g", "eq-graph" })
            CHECK (panel.HitAt (off) == kNewPaneId);
        CHECK (panel.HitAt ("drive") == 0);
        panel.SetValue (Id (StripParameter::compressorBypass), 0.0f);
        panel.Wait (60);
        CHECK (panel.HitAt ("total-gain") == 17);
        CHECK (panel.HitAt ("mid-g") == kNewPaneId);
    }
    SUBCASE ("the dialog and the about picture leave it off")
    {
        panel.Click ("name");
        CHECK (panel.HitAt ("drive") == kNewPaneId);
        panel.Click ("cancel");
        CHECK (panel.HitAt ("attack") == kNewPaneId);
        CHECK (panel.HitAt ("drive") == 0);
        CHECK (panel.HitAt ("total-gain") == 17);
        panel.Click ("about");
        CHECK (panel.HitAt ("drive") == kAboutCloseId);
        panel.Click ("drive");
        CHECK (panel.HitAt ("drive") == 0);
        CHECK (panel.HitAt ("attack") == kNewPaneId);
    }
}

TEST_CASE ("Strip editor: a bypass closes the open rings of its section at once")
{
    Panel panel;
    panel.Wait (60);
    const auto before = panel.Shown ();
    panel.Press ("attack");
    panel.Wait (400);
    CHECK_FALSE (panel.Editor ().AllGuidesIdle ());
    panel.SetValue (Id (StripParameter::compressorBypass), 1.0f);
    panel.Wait (30);
    CHECK (panel.Editor ().AllGuidesIdle ());
    panel.Window ().Release ();
    panel.SetValue (Id (StripParameter::compressorBypass), 0.0f);
    panel.Window ().Point (kBench);
    panel.Wait (60);
    CHECK (panel.Shown ().IsLike (before, 0));
}

TEST_CASE ("Strip editor: what the wheel has lit under the pointer goes out by a bypass or a press elsewhere")
{
    constexpr ZPoint kMidMarker{ 408, 90 }; // 1 kHz and 0 dB, of the first key point
    const ZRect midText = kEqTexts[6].frame;
    for (const ZPoint lit : { kMidMarker, Middle (midText) })
    {
        Panel panel;
        panel.SetStep (Id (StripParameter::midGain), 181);
        panel.Wait (600);
        const auto before = panel.Shown ();
        const auto isLit = [&] { return !panel.Looks (before, midText) || !panel.Looks (before, kBandLeds[1].frame); };
        const auto light = [&]
        {
            panel.SetStep (Id (StripParameter::midGain), 180);
            panel.Wait (60);
            panel.Wheel (lit, 1);
            panel.Wait (60);
            CHECK (panel.Step (Id (StripParameter::midGain)) == 181);
            CHECK (isLit ());
        };
        light ();
        panel.SetValue (Id (StripParameter::equalizerBypass), 1.0f);
        panel.Wait (60);
        panel.SetValue (Id (StripParameter::equalizerBypass), 0.0f);
        panel.Wait (60);
        CHECK_FALSE (isLit ());
        light ();
        panel.Press ("high-g");
        panel.Wait (60);
        CHECK_FALSE (isLit ());
        CHECK_FALSE (panel.Looks (before, kBandLeds[2].frame));
    }
}

TEST_CASE ("Strip editor: a wheel beside the graph's markers leaves none of the lights of \"Morph\"")
{
    Panel panel;
    panel.Wait (600);
    const auto before = panel.Shown ();
    panel.Wheel (panel.At ("morph"), 0);
    CHECK_FALSE (panel.Looks (before, kEqGraph));
    panel.Wheel ({ 450, 120 }, 1);
    panel.Wait (60);
    CHECK (panel.Looks (before, kEqGraph));
}

TEST_CASE ("Strip editor: a value that departs from the morph shows on its dial")
{
    Panel panel (MakeTwoSets ());
    panel.SetStep (20, 30);
    panel.Wait (2000);
    const auto before = panel.Shown ();
    const auto modified = [&] { return !panel.Looks (before, layout::At (255, 229, 50, 50)); };
    CHECK_FALSE (modified ()); // a morph from outside is none

    panel.SetStep (1, panel.Step (1) + 1); // "Attack", the first that the morph moves
    panel.Wait (2000);
    CHECK (modified ());

    SUBCASE ("until the value is back")
    {
        panel.SetStep (1, panel.Step (1) - 1);
        panel.Wait (2000);
        CHECK_FALSE (modified ());
    }
    SUBCASE ("until the dial moves")
    {
        panel.SetStep (20, 31);
        panel.Wait (60);
        panel.SetStep (20, 30);
        panel.Wait (2000);
        CHECK_FALSE (modified ());
    }
    SUBCASE ("until a set is chosen, even one with steps beyond the scales")
    {
        panel.Click ("name");
        panel.Click ("list");
        panel.Window ().Key ({ 0, 0, kKeyEnd });
        panel.Press (layout::At (330, 64, 100, 16).TopLeft ()); // the second line
        panel.Window ().Release ();
        panel.Click ("ok");
        panel.Wait (2000);
        CHECK (std::string (panel.Effect ().GetKeyPointName ()) == "wild");
        CHECK (panel.Step (1) == 283);
        CHECK (panel.TakeEnded () == std::vector<std::int32_t>{ -1 });
        panel.SetValue (18, 1.0f); // the host moves something else
        panel.SetValue (18, 0.0f);
        panel.SetStep (0, 20);
        panel.Wait (2000);
        CHECK_FALSE (modified ());
        panel.Editor ().CheckModified ();
        panel.Wait (100);
        CHECK_FALSE (modified ());
    }
}

TEST_CASE ("Strip editor: keys and mouse block one another")
{
    Panel panel;
    panel.Click ("drive");
    ZKeyInput up{ 0, 0, kKeyUp };
    const auto drive = panel.Step (0);
    SUBCASE ("a key while a button is held is dropped")
    {
        panel.Press ("drive");
        panel.Window ().Key (up);
        CHECK (panel.Step (0) == drive);
    }
    SUBCASE ("a press while a key is held is dropped, but not for ever")
    {
        panel.Window ().KeyDown (up);
        CHECK (panel.Step (0) == drive + 1);
        panel.Window ().Press (kLeftButton, 0);
        CHECK (panel.Editor ().GetCapturePane () == nullptr);
        panel.Wait (600); // the release never came
        panel.Window ().Press (kLeftButton, 0);
        CHECK (panel.Editor ().GetCapturePane () != nullptr);
    }
    SUBCASE ("losing the focus ends both")
    {
        panel.Window ().KeyDown (up);
        panel.Editor ().FocusLost ();
        panel.Window ().Press (kLeftButton, 0);
        CHECK (panel.Editor ().GetCapturePane () != nullptr);
    }
}

TEST_CASE ("Strip editor: a state that was read brings its set's name")
{
    Panel panel;
    panel.Wait (60);
    const auto before = panel.Shown ();
    panel.Effect ().SetKeyPointName ("Another");
    CHECK (panel.Looks (before, kNameButton));
    auto code = kCodeStateReadEnds;
    panel.Editor ().OnEffectEvent (code, nullptr);
    panel.Wait (30);
    CHECK_FALSE (panel.Looks (before, kNameButton));
}

TEST_CASE ("Strip editor: it lets go of an effect that ends while it is open")
{
    Panel panel (MakeTwoSets ());
    panel.Click ("name");
    for (const std::int32_t code : { kCodeCore, kCodeStorage, kCodeVuBuffer })
        panel.Editor ().OnEffectEvent (code, nullptr);
    panel.Wait (300);
    panel.Click ("ok");
    panel.Click ("cancel");
    panel.Press ("attack");
    panel.Wait (400);
    panel.Window ().Release ();
    panel.Editor ().Invalidate (true);
    CHECK (panel.Window ().Paint ());
}
