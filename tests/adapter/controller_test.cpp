#include "strip_in_host.h"
#include <algorithm>
#include <chrono>
#include <doctest/doctest.h>
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

namespace
{

constexpr Vst::ParamID kMorph = 20;

/// One row of the table that hosts and stored projects rely on.
struct FrozenParameter
{
    const char* title;
    const char* units;
    int32 stepCount;
    double defaultPlain;
};

// A fresh instance's defaults are the first key point; projects and automation hold these ids for good.
constexpr std::array<FrozenParameter, 22> kFrozen{ {
    { "Drive", "", 0, 100 },
    { "Attack", "ms", 0, 184 },
    { "Release", "ms", 0, 159 },
    { "Ratio", "", 0, 30 },
    { "Knee", "", 2, 1 },
    { "Drive Offset", "", 0, 100 },
    { "Makeup Amount", "", 0, 70 },
    { "Side Chain F", "Hz", 0, 30 },
    { "Side Chain G", "dB", 0, 133 },
    { "Side Chain Q", "", 0, 12 },
    { "High F", "Hz", 0, 112 },
    { "High G", "dB", 0, 180 },
    { "Mid F", "Hz", 0, 72 },
    { "Mid G", "dB", 0, 180 },
    { "Mid Q", "", 0, 12 },
    { "Low F", "Hz", 0, 32 },
    { "Low G", "dB", 0, 180 },
    { "Total Gain", "dB", 0, 180 },
    { "Equalizer Bypass", "", 1, 0 },
    { "Compressor Bypass", "", 1, 0 },
    { "Morph", "", 0, 0 },
    { "Bypass", "", 1, 0 },
} };

void Wait (int ms)
{
    std::this_thread::sleep_for (std::chrono::milliseconds (ms));
}

} // namespace

TEST_CASE ("The host sees 22 parameters and two read-only meters, as stored projects know them")
{
    StripInHost strip;
    const auto access = strip.instance.Parameters ();
    const auto list = access.List ();
    REQUIRE (list.size () == 24);
    for (std::size_t i = 0; i < kFrozen.size (); ++i)
    {
        CAPTURE (i);
        CHECK (list[i].id == i);
        CHECK (list[i].title == kFrozen[i].title);
        CHECK (list[i].units == kFrozen[i].units);
        CHECK (list[i].stepCount == kFrozen[i].stepCount);
        CHECK (access.ToPlain (list[i].id, list[i].defaultNormalized) == kFrozen[i].defaultPlain);
        CHECK (access.Normalized (list[i].id) == list[i].defaultNormalized);
        CHECK (list[i].flags == (i == 21 ? (Vst::ParameterInfo::kCanAutomate | Vst::ParameterInfo::kIsBypass)
                                         : Vst::ParameterInfo::kCanAutomate));
    }
    for (std::size_t i = 22; i < 24; ++i)
    {
        CHECK (list[i].id == 0x10000000 + i - 22);
        CHECK (list[i].title == "VU");
        CHECK (list[i].flags == Vst::ParameterInfo::kIsReadOnly);
    }
    CHECK (access.Text (3, 1.0) == " INF");
    CHECK (access.Text (4, 0.5) == "Middle");
    CHECK (access.FromText (0, "150").value () == doctest::Approx (0.75)); // a host's text is a step
    CHECK_FALSE (access.FromText (0, "loud"));
}

TEST_CASE (
    "One morph step reports each parameter that it moved, once, inside a bracket, and the dial itself is no echo")
{
    StripInHost strip;
    const auto access = strip.instance.Parameters ();
    REQUIRE (access.SetNormalized (kMorph, 15.0 / 120.0) == kResultOk);

    const auto performed = strip.Calls (Kind::performEdit);
    std::vector<Vst::ParamID> moved;
    for (const auto& call : performed)
    {
        moved.push_back (call.id);
        CHECK (call.value == access.Normalized (call.id));
    }
    CHECK (moved ==
           std::vector<Vst::ParamID>{ 1, 2, 3, 7, 8, 10, 11, 12, 13, 14, 15, 16 }); // rows 0 and 1 differ there
    CHECK (strip.Calls (Kind::beginEdit).size () == performed.size ());
    CHECK (strip.Calls (Kind::endEdit).empty ());

    // The same value again is a repeat and makes no trip.
    strip.calls.clear ();
    CHECK (access.SetNormalized (kMorph, 15.0 / 120.0) == kResultOk);
    CHECK (strip.calls.empty ());
}

TEST_CASE ("Without a run loop, open brackets end at the host's next call after two seconds, last one first")
{
    StripInHost strip;
    strip.instance.Parameters ().SetNormalized (kMorph, 0.5);
    const auto begun = strip.Calls (Kind::beginEdit);
    REQUIRE (!begun.empty ());
    Wait (1000);
    strip.instance.Parameters ().Normalized (0);
    CHECK (strip.Calls (Kind::endEdit).empty ());
    Wait (1050);
    strip.instance.Parameters ().Normalized (0);
    const auto ended = strip.Calls (Kind::endEdit);
    REQUIRE (ended.size () == begun.size ());
    CHECK (ended.front ().id == begun.back ().id);
    CHECK (ended.back ().id == begun.front ().id);
}

TEST_CASE ("With a run loop a 20 ms timer ends the brackets, whichever context offers the loop")
{
    HandRunLoop loop;
    {
        StripInHost strip ({}, &loop);
        REQUIRE (loop.TimerCount () == 1);
        CHECK (loop.lastInterval == 20);
        strip.instance.Parameters ().SetNormalized (kMorph, 0.5);
        const auto begun = strip.Calls (Kind::beginEdit).size ();
        loop.FireTimers ();
        CHECK (strip.Calls (Kind::endEdit).empty ());
        Wait (2050);
        loop.FireTimers ();
        CHECK (strip.Calls (Kind::endEdit).size () == begun);
    }
    CHECK (loop.TimerCount () == 0);

    // A loop that takes no timers is lived without, and one that only the factory is told of serves as well.
    HandRunLoop refusing (false);
    {
        StripInHost strip ({}, &refusing);
        strip.instance.Parameters ().SetNormalized (kMorph, 0.5);
    }
    host::NamedHost factoryContext ("loop in the factory", &loop);
    host::NamedHost plainContext ("no loop");
    const auto& factory = LoadedBundle ().Factory ();
    factory.setHostContext (&factoryContext);
    {
        const auto controller = factory.createInstance<Vst::IEditController> (factory.classInfos ()[1].ID ());
        REQUIRE (controller);
        REQUIRE (controller->initialize (&plainContext) == kResultOk);
        CHECK (loop.TimerCount () == 1);
        controller->terminate ();
        CHECK (loop.TimerCount () == 0);
    }
    factory.setHostContext (nullptr);
}

TEST_CASE ("A host that answers an edit with the same change gets no second trip through the effect")
{
    host::InstanceOptions options;
    Vst::IEditController* controller = nullptr;
    std::vector<tresult> answers;
    options.onHandlerCall = [&] (const host::HandlerCall& call)
    {
        if (call.kind == Kind::performEdit)
            answers.push_back (controller->setParamNormalized (call.id, call.value));
    };
    StripInHost strip (options);
    controller = &strip.instance.Controller ();
    controller->setParamNormalized (kMorph, 1.0);
    CHECK (answers.size () > 10);
    for (const tresult answer : answers)
        CHECK (answer == kResultFalse);
    CHECK (strip.Calls (Kind::performEdit).size () == answers.size ());
}

TEST_CASE ("A meter value goes to the meters only: no edit, no storage")
{
    StripInHost strip;
    CHECK (strip.instance.Parameters ().SetNormalized (0x10000001, 0.5) == kResultOk);
    CHECK (strip.instance.Parameters ().Normalized (0x10000001) == 0.5);
    CHECK (strip.instance.Parameters ().SetNormalized (0x10000002, 0.5) == kResultFalse);
    CHECK (strip.Calls (Kind::beginEdit).empty ());
    CHECK (strip.Calls (Kind::performEdit).empty ());
}

TEST_CASE ("A host's value beyond the range counts as its end, what is no number changes nothing and is never answered")
{
    StripInHost strip;
    const auto access = strip.instance.Parameters ();
    struct End
    {
        double sent, taken;
    };
    for (const Vst::ParamID id : { 0u, 4u, 18u, 20u, 21u, 0x10000000u })
    {
        CAPTURE (id);
        for (const auto& [sent, taken] : { End{ HUGE_VAL, 1.0 }, { -HUGE_VAL, 0.0 }, { 1e300, 1.0 }, { -0.5, 0.0 } })
        {
            CHECK (access.SetNormalized (id, sent) == kResultOk);
            CHECK (access.Normalized (id) == taken);
            CHECK (access.ToPlain (id, sent) == access.ToPlain (id, taken));
            CHECK (access.Text (id, sent) == access.Text (id, taken));
            CHECK (std::clamp (access.ToNormalized (id, sent), 0.0, 1.0) == access.ToNormalized (id, sent));
        }
        access.SetNormalized (id, 1.0);
        const double none = std::nan ("");
        CHECK (access.SetNormalized (id, none) == kResultFalse);
        CHECK (access.Normalized (id) == 1.0);
        CHECK (access.ToPlain (id, none) == access.ToPlain (id, 1.0));
        CHECK (access.Text (id, none) == access.Text (id, 1.0));
        CHECK (access.ToNormalized (id, none) == 1.0);
        for (const char* text : { "nan", "inf", "-inf", "1e999", "-1e999", "" })
            if (const auto value = access.FromText (id, text))
                CHECK ((*value >= 0.0 && *value <= 1.0));
    }
    CHECK (access.SetNormalized (99, 0.5) == kResultFalse);
    CHECK (access.ToPlain (99, std::nan ("")) == 0.0);
    for (const auto& call : strip.Calls (Kind::performEdit))
        CHECK ((call.value >= 0.0 && call.value <= 1.0));
    strip.Start ();
    const auto out = strip.Run (0.5f, 512);
    CHECK (std::all_of (out.begin (), out.end (), [] (float sample) { return std::isfinite (sample); }));
}

TEST_CASE ("Before the halves are connected the controller has no parameters")
{
    host::InstanceOptions options;
    options.connection = host::ConnectionKind::none;
    StripInHost strip (options);
    auto& controller = strip.instance.Controller ();
    CHECK (controller.getParameterCount () == 0);
    CHECK (controller.setComponentState (nullptr) == kResultOk);
    CHECK (controller.setParamNormalized (0, 0.5) == kResultFalse);
    CHECK (strip.calls.empty ());
}

TEST_CASE ("Messages with a pointer are checked, and hearing them twice or in the wrong half changes nothing")
{
    host::InstanceOptions options;
    options.connection = host::ConnectionKind::direct;
    StripInHost strip (options);
    auto* controller = &strip.instance.Controller ();
    auto* component = &strip.instance.Component ();
    const auto access = strip.instance.Parameters ();
    access.SetNormalized (0, 0.25);

    int stranger = 0;
    const void* wild = &stranger;
    for (const char* id : { "ConnectEffectPointer", "DisconnectEffectPointer", "MONO", "STEREO", "NUMCHANNEL" })
    {
        CAPTURE (id);
        CHECK (Send (strip, controller, id, &wild, sizeof (wild)) == kResultFalse);
        CHECK (Send (strip, controller, id, &wild, 3) == kResultFalse);
        CHECK (Send (strip, controller, id, nullptr, 0) == kResultFalse);
        CHECK (Send (strip, component, id, &wild, sizeof (wild)) == kResultFalse);
    }
    CHECK (Send (strip, component, "ConnectEditorPointer", nullptr, 0) == kResultFalse);
    CHECK (Send (strip, component, "DisconnectEditorPointer", nullptr, 0) == kResultOk);
    CHECK (access.List ().size () == 24);
    CHECK (access.Normalized (0) == 0.25);
}

TEST_CASE ("The controller finds out by itself when the message of its processor's end was lost")
{
    StripInHost strip; // its connection drops messages off the main thread
    auto& controller = strip.instance.Controller ();
    REQUIRE (controller.getParameterCount () == 24);
    std::thread ([&strip] { strip.instance.Component ().terminate (); }).join ();
    CHECK (controller.setParamNormalized (kMorph, 1.0) == kResultFalse);
    CHECK (controller.getParameterCount () == 0);
}
