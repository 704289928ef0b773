#pragma once

#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_storage.h"
#include "kprd_collection.h"
#include "pane_fixture.h"
#include "panel_state.h"
#include "recording_wrapper.h"
#include <memory>
#include <utility>
#include <vector>

namespace tessaly
{

/// A collection of key-point sets that a test makes up.
struct MadeUpCollection final : KPRD_CollectionImp
{
    using Fill = void (*) (KPRD_Entries&);

    explicit MadeUpCollection (Fill function)
        : fill (function)
    {
    }
    void Load (KPRD_Entries& list) override { fill (list); }

    static void AddFile (KPRD_Entries& list, const char* name)
    {
        list.emplace_back (std::make_unique<KPRD_Data> ())->SetFile (name, 1);
    }
    static KPRD_Entries& AddFolder (KPRD_Entries& list, const char* name)
    {
        return list.emplace_back (std::make_unique<KPRD_Data> ())->SetName (name);
    }

private:
    Fill fill;
};

/// A strip as an instance has it, and the owner of the panes that show it: what they broadcast is set on the effect and
/// on every one of them, as on the panel.
class StripFixture : public PaneFixture, public PanelState
{
public:
    explicit StripFixture (MadeUpCollection::Fill fill = [] (KPRD_Entries&) {})
    {
        const auto records = ChannelStripRecords ();
        const auto program = ChannelStripProgram ();
        const auto makeBackEnd = [fill] { return std::make_unique<MadeUpCollection> (fill); };
        effect.SetStorage (std::make_unique<ZChannel_StripStorage> (makeBackEnd), records.data (), &program, 1,
                           kStripParameterCount);
        effect.GetInfo (kCodeStorage, &storage);
        auto core = std::make_unique<Channel_Strip> (&effect);
        engine = core.get ();
        effect.SetPluginCore (std::move (core));
        effect.GetInfo (kCodeKeyPointManager, &manager);
    }

    test::CallLog log; // of the effect
    test::RecordingWrapper wrapper{ log };
    ZChannel_StripEffect effect{ &wrapper };
    ZParameterStorageBase* storage = nullptr; // not owned: the effect's, as the two below
    Channel_Strip* engine = nullptr;
    KPRD_Manager* manager = nullptr;
    bool guidesIdle = true;

    void Show (ZControl& control)
    {
        Adopt (control);
        control.SetStorage (storage);
        control.SetDirty (false);
    }
    void SetStep (StripParameter parameter, float step)
    {
        effect.SetParameter (IndexOf (parameter), storage->PlainToNormalized (IndexOf (parameter), step));
    }
    float Step (StripParameter parameter) const { return storage->GetPlain (IndexOf (parameter)); }
    std::vector<std::int32_t> TakeMessages () { return std::exchange (messages, {}); }

    // As PaneFixture's
    bool AllGuidesIdle () const override { return guidesIdle; }
    bool GetInfo (std::int32_t kind, void* out) override { return effect.GetInfo (kind, out); }
    void OnValue (std::int32_t id, float value) override
    {
        if (id < kStripParameterCount)
            effect.SetParameter (id, value);
        PaneFixture::OnValue (id, value);
    }
    void OnMessage (std::int32_t message, ZControl*) override { messages.push_back (message); }

private:
    std::vector<std::int32_t> messages;
};

} // namespace tessaly
