#include "joined_halves.h"
#include "strip_in_host.h"
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

namespace
{

// Title, default step and unit by id; projects and automation hold these for good.
const std::vector<std::string> kFrozen{
    "Drive 100 ",        "Attack 184 ms",     "Release 159 ms",     "Ratio 30 ",           "Knee 1 ",
    "Drive Offset 100 ", "Makeup Amount 70 ", "Side Chain F 30 Hz", "Side Chain G 133 dB", "Side Chain Q 12 ",
    "High F 112 Hz",     "High G 180 dB",     "Mid F 72 Hz",        "Mid G 180 dB",        "Mid Q 12 ",
    "Low F 32 Hz",       "Low G 180 dB",      "Total Gain 180 dB",  "Equalizer Bypass 0 ", "Compressor Bypass 0 ",
    "Morph 0 ",          "Bypass 0 "
};

} // namespace

TEST_CASE ("The host sees the parameters and two read-only meters, as stored projects know them")
{
    StripInHost strip;
    const auto access = strip.instance.Parameters ();
    const auto list = access.List ();
    REQUIRE (list.size () == kParameterCount + 2);
    for (Vst::ParamID id = 0; id < kParameterCount; ++id)
    {
        CAPTURE (id);
        const auto& info = list[id];
        CHECK (info.id == id);
        const int step = static_cast<int> (access.ToPlain (id, info.defaultNormalized));
        CHECK (info.title + " " + std::to_string (step) + " " + info.units == kFrozen[id]);
        CHECK (info.stepCount == (id == 4 ? 2 : id == 18 || id == 19 || id == 21 ? 1 : 0));
        CHECK (access.Normalized (id) == info.defaultNormalized);
        CHECK (info.flags == (id == 21 ? (Vst::ParameterInfo::kCanAutomate | Vst::ParameterInfo::kIsBypass)
                                       : Vst::ParameterInfo::kCanAutomate));
    }
    for (Vst::ParamID i = kParameterCount; i < list.size (); ++i)
    {
        CHECK (list[i].id == 0x10000000 + i - kParameterCount);
        CHECK (list[i].title == "VU");
        CHECK (list[i].flags == Vst::ParameterInfo::kIsReadOnly);
    }
    CHECK (access.Text (3, 1.0) == " INF");
    CHECK (access.Text (4, 0.5) == "Middle");
    CHECK (access.FromText (0, "150").value () == doctest::Approx (0.75)); // a host's text is a step
    CHECK_FALSE (access.FromText (0, "loud"));
    for (const char* name : { "Editor", "", static_cast<const char*> (nullptr) })
        CHECK (strip.instance.Controller ().createView (name) == nullptr);
}

TEST_CASE ("One morph step reports each parameter that it moved, once, in a bracket, and the dial itself is no echo")
{
    StripInHost strip;
    REQUIRE (strip.Set (kMorph, 15.0 / 120.0) == kResultOk);
    std::vector<Vst::ParamID> moved;
    for (const auto& call : strip.Calls (Kind::performEdit))
    {
        moved.push_back (call.id);
        CHECK (call.value == strip.Value (call.id));
    }
    // where rows 0 and 1 differ
    CHECK (moved == std::vector<Vst::ParamID>{ 1, 2, 3, 7, 8, 10, 11, 12, 13, 14, 15, 16 });
    CHECK (strip.Calls (Kind::beginEdit).size () == moved.size ());
    CHECK (strip.Calls (Kind::endEdit).empty ());

    // The same value again is a repeat, a meter's is for the meters only.
    strip.calls.clear ();
    CHECK (strip.Set (kMorph, 15.0 / 120.0) == kResultOk);
    CHECK (strip.Set (kOutputMeter, 0.5) == kResultOk);
    CHECK (strip.Value (kOutputMeter) == 0.5);
    CHECK (strip.calls.empty ());
}

TEST_CASE ("A host that answers an edit with the same change gets no second trip through the effect")
{
    host::InstanceOptions options;
    Vst::IEditController* controller = nullptr;
    options.onHandlerCall = [&] (const host::HandlerCall& call)
    {
        if (call.kind == Kind::performEdit)
            CHECK (controller->setParamNormalized (call.id, call.value) == kResultFalse);
    };
    StripInHost strip (options);
    controller = &strip.instance.Controller ();
    controller->setParamNormalized (kMorph, 1.0);
    CHECK (OpenEdits (strip.calls) > 10);
}

TEST_CASE ("A host's value beyond the range counts as its end, NaN changes nothing and is never answered")
{
    StripInHost strip;
    const auto access = strip.instance.Parameters ();
    for (const Vst::ParamID id : { 0u, 4u, 18u, 20u, 21u, kReductionMeter })
    {
        CAPTURE (id);
        for (const auto& [value, taken] :
             { std::pair{ -HUGE_VAL, 0.0 }, { 1e300, 1.0 }, { -0.5, 0.0 }, { HUGE_VAL, 1.0 }, { std::nan (""), 1.0 } })
        {
            CHECK (access.SetNormalized (id, value) == (std::isnan (value) ? kResultFalse : kResultOk));
            CHECK (access.Normalized (id) == taken);
            CHECK (access.ToPlain (id, value) == access.ToPlain (id, taken));
            CHECK (access.Text (id, value) == access.Text (id, taken));
            CHECK (std::clamp (access.ToNormalized (id, value), 0.0, 1.0) == access.ToNormalized (id, value));
        }
        for (const char* text : { "nan", "inf", "-inf", "1e999", "-1e999", "" })
        {
            const double read = access.FromText (id, text).value_or (0.0);
            CHECK ((read >= 0.0 && read <= 1.0));
        }
    }
    CHECK (access.SetNormalized (99, 0.5) == kResultFalse);
    CHECK (access.SetNormalized (0x10000002, 0.5) == kResultFalse); // a third meter
    CHECK (access.ToPlain (99, std::nan ("")) == 0.0);
    for (const auto& call : strip.Calls (Kind::performEdit))
        CHECK ((call.value >= 0.0 && call.value <= 1.0));
}

TEST_CASE ("Messages with a pointer are checked, and hearing them in the wrong half changes nothing")
{
    StripInHost strip;
    auto* controller = &strip.instance.Controller ();
    auto* component = &strip.instance.Component ();
    strip.Set (0, 0.25);
    int stranger = 0;
    const void* wild = &stranger;
    for (const char* id : { "ConnectEffectPointer", "DisconnectEffectPointer", "MONO", "STEREO", "NUMCHANNEL" })
    {
        CAPTURE (id);
        CHECK (Send (controller, id, &wild, sizeof (wild)) == kResultFalse);
        CHECK (Send (controller, id, &wild, 3) == kResultFalse);
        CHECK (Send (controller, id, nullptr, 0) == kResultFalse);
        CHECK (Send (component, id, &wild, sizeof (wild)) == kResultFalse);
    }
    CHECK (Send (component, "ConnectEditorPointer", nullptr, 0) == kResultFalse);
    CHECK (Send (component, "DisconnectEditorPointer", nullptr, 0) == kResultOk);
    CHECK (controller->getParameterCount () == kParameterCount + 2);
    CHECK (strip.Value (0) == 0.25);
}

TEST_CASE ("The controller finds out by itself when the message of its processor's end was lost")
{
    for (const bool byStranger : { false, true })
    {
        StripInHost strip; // its connection drops messages off the main thread
        const auto endAndBegin = [&component = strip.instance.Component ()]
        {
            component.terminate ();
            component.initialize (nullptr); // in memory that the other effect has just left
        };
        std::thread (endAndBegin).join ();
        tresult answer = kResultOk;
        const auto set = [&] { answer = strip.Set (kMorph, 1.0); };
        byStranger ? std::thread (set).join () : set ();
        CHECK (answer == kResultFalse);
        CHECK (strip.instance.Controller ().getParameterCount () == 0);
    }
}
