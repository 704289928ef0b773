#include "channel_strip_effect.h"
#include "joined_halves.h"
#include "parameter_ids.h"
#include "strip_in_host.h"
#include <thread>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;
using Kind = host::HandlerCall::Kind;

namespace
{

struct RecordingView final : EditorViewListener
{
    explicit RecordingView (EditorController& of)
        : controller (of)
    {
        controller.AddView (*this);
    }
    ~RecordingView () override { controller.RemoveView (*this); }

    void SetActive (bool state) override { log += state ? "on " : "off "; }
    void OnEffectGone () override
    {
        ZParameterStorageBase* storage = nullptr;
        log += controller.GetInfo (kCodeStorage, &storage) ? "leaving " : "gone ";
    }
    void OnEffectCame () override { log += "came "; }

    EditorController& controller; // not owned: the test's
    std::string log;
};

} // namespace

TEST_CASE ("Views hear of the processor's state and of the effect's coming and going")
{
    JoinedHalves halves;
    RecordingView view (*halves.controller);
    ZVuBuffer* meters = nullptr;
    REQUIRE (halves.controller->GetInfo (kCodeVuBuffer, &meters));
    CHECK (meters->Get (0) == 0.0f);
    halves.processor->setActive (false);
    CHECK_FALSE (halves.controller->IsActive ());
    halves.processor->setActive (true);
    halves.Disconnect ();
    halves.Connect ();
    CHECK (view.log == "off on leaving came ");
    halves.controller->RemoveView (view);
    halves.processor->setActive (false);
    CHECK (view.log == "off on leaving came ");
}

TEST_CASE ("Of an end whose message was lost the editor hears at once, a view at the host's next call")
{
    JoinedHalves halves;
    RecordingView view (*halves.controller);
    RecordingEditor editor;
    halves.controller->ConnectEditor (editor);
    halves.controller->disconnect (halves.processor);
    std::thread (
        [&]
        {
            halves.processor->Vst::ComponentBase::disconnect (halves.controller); // without a word
            halves.processor->terminate ();
        })
        .join ();
    CHECK_FALSE (halves.controller->HasEffect ());
    CHECK (editor.log == "1- 2- 3- ");
    halves.controller->getParameterCount ();
    halves.controller->setParamNormalized (kMorph, 1.0);
    CHECK (view.log == "gone ");
    CHECK (editor.log == "1- 2- 3- ");
    halves.controller->DisconnectEditor (editor);
}

TEST_CASE ("The newest editor hears the effect, across a reconnection; when it leaves, the one before is shown anew")
{
    JoinedHalves halves;
    RecordingEditor oldest;
    RecordingEditor older;
    RecordingEditor newer;
    for (auto* editor : { &oldest, &older, &newer })
        halves.controller->ConnectEditor (*editor);
    halves.controller->DisconnectEditor (oldest); // leaves the newest one connected
    halves.Disconnect ();
    halves.Connect ();
    halves.Effect ()->SetBypass (true);
    CHECK (older.log.empty ());
    halves.controller->DisconnectEditor (newer);
    halves.Effect ()->SetBypass (false);
    CHECK (newer.log == "9 ");
    CHECK (older.log == "2 9 ");
    halves.controller->DisconnectEditor (older);
    halves.Effect ()->SetBypass (true);
    CHECK (older.log == "2 9 ");
    CHECK (oldest.log.empty ());
}

TEST_CASE ("A host that ends all edits on hearing of one still hears each within its brackets")
{
    JoinedHalves halves;
    host::ComponentHandler ending (
        [&] (const host::HandlerCall& call)
        {
            halves.calls.push_back (call);
            if (call.kind == Kind::beginEdit || call.kind == Kind::performEdit)
            {
                halves.controller->EndAllHeldEdits (); // as by closing the panel
                halves.controller->EndAllTimedEdits ();
            }
        });
    halves.controller->setComponentHandler (&ending);
    halves.controller->BeginHeldEdit (kMorph);
    halves.controller->SetParameterFromEditor (kMorph, 0.3f);
    CHECK (OpenEdits (halves.calls) == 0);
    CHECK (halves.Ids (Kind::performEdit).size () > 10);
    halves.controller->setComponentHandler (&halves.handler);
}

TEST_CASE ("SyncParameter reports what differs, one index without comparing, an unknown one not at all")
{
    JoinedHalves halves;
    auto* const effect = dynamic_cast<ZChannel_StripEffect*> (halves.Effect ());
    REQUIRE (effect != nullptr);
    for (const std::int32_t unknown : { -2, int (kParameterCount), 65535, int (kFirstMeterId) })
        halves.controller->SyncParameter (unknown);
    CHECK (halves.calls.empty ());
    effect->ApplyMorph (20, 0.125f); // by the side door
    halves.controller->SyncParameter (-1);
    CHECK (halves.Ids (Kind::performEdit).size () == 12);
    CHECK (halves.Ids (Kind::beginEdit) == halves.Ids (Kind::endEdit));
    halves.calls.clear ();
    halves.controller->SyncParameter (-1);
    CHECK (halves.calls.empty ());
    halves.controller->SyncParameter (3);
    CHECK (halves.Ids (Kind::performEdit) == std::vector<Vst::ParamID>{ 3 });
}

TEST_CASE ("An editor's value is performed once in its held edit, which ends when it is not renewed")
{
    JoinedHalves halves;
    handClockMs = 0;
    halves.controller->BeginHeldEdit (kDrive);
    halves.controller->SetParameterFromEditor (kDrive, 0.25f);
    CHECK (halves.controller->getParamNormalized (kDrive) == 0.25);
    CHECK (halves.Ids (Kind::performEdit) == std::vector{ kDrive });
    handClockMs = 1500;
    halves.controller->RenewHeldEdits ();
    for (const auto& [nowMs, ends] : { std::pair{ 3500u, 0u }, { 3501u, 1u } })
    {
        handClockMs = nowMs;
        halves.controller->getParameterCount ();
        CHECK (halves.Ids (Kind::endEdit).size () == ends);
    }
}
