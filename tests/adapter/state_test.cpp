#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "state_bytes.h"
#include "strip_in_host.h"
#include <limits>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// A host's stream with the faults that a test asks for.
class FaultyStream final : public ResizableMemoryIBStream
{
public:
    explicit FaultyStream (Bytes content = {})
    {
        if (!content.empty ()) // the SDK's stream copies nothing from or to nowhere, which is undefined
            ResizableMemoryIBStream::write (content.data (), static_cast<int32> (content.size ()), nullptr);
        rewind ();
    }

    int32 longestMove = std::numeric_limits<int32>::max ();           ///< of one call
    std::size_t failsFrom = std::numeric_limits<std::size_t>::max (); ///< position
    bool canSeek = true;

    tresult PLUGIN_API read (void* buffer, int32 count, int32* done) override
    {
        const tresult result = ResizableMemoryIBStream::read (buffer, std::min (count, longestMove), done);
        return Told (result);
    }
    tresult PLUGIN_API write (void* buffer, int32 count, int32* done) override
    {
        const int32 moved = std::min (count, longestMove);
        *done = 0;
        const tresult result = moved != 0 ? ResizableMemoryIBStream::write (buffer, moved, done) : kResultOk;
        return Told (result);
    }
    tresult PLUGIN_API seek (int64 offset, int32 mode, int64* result) override
    {
        return canSeek ? ResizableMemoryIBStream::seek (offset, mode, result) : kNotImplemented;
    }

private:
    tresult Told (tresult result) const { return getCursor () > failsFrom ? kInternalError : result; }
};

/// A set whose rows are all alike, and values that no morph by it makes.
Bytes Edited ()
{
    std::vector<float> values (kParameterCount, 0.5f);
    values[0] = 0.25f;
    values[18] = values[19] = values[21] = 0.0f;
    return State (values, KeyPoints ("Mine", 30));
}

/// States as text, through streams that are looked at afterwards.
struct StoredStrip : StripInHost
{
    Bytes Saved () const
    {
        const auto state = instance.SaveState ();
        return { reinterpret_cast<const char*> (state.data ()), state.size () };
    }
    void Load (const Bytes& state)
    {
        const auto* const bytes = reinterpret_cast<const std::byte*> (state.data ());
        instance.LoadState ({ bytes, bytes + state.size () });
    }
};

} // namespace

TEST_CASE_FIXTURE (StoredStrip, "State: bytes that come back as they are, the controller showing the values")
{
    const auto initial = Saved ();
    CHECK (initial.size () == kStateBytes);
    CHECK (initial.substr (0, 8) == "2620" + Big (0x3F000000, 4)); // "Drive" at its default, a half
    CHECK (initial.substr (92, 4) == "CHST");
    CHECK (initial.substr (100, 4) == "FINF");
    for (const auto& state : { Edited (), initial, Edited () })
    {
        Load (state);
        CHECK (Saved () == state);
    }
    CHECK (Value (0) == 0.25);
    CHECK (Value (20) == 0.5);
    CHECK (Calls (host::HandlerCall::Kind::performEdit).empty ());
}

TEST_CASE_FIXTURE (StoredStrip, "State: nothing without an effect or a stream")
{
    CHECK (instance.Component ().getState (nullptr) == kResultFalse);
    CHECK (instance.Component ().setState (nullptr) == kResultFalse);
    const auto id = LoadedBundle ().FirstAudioEffect ().ID ();
    const auto bare = LoadedBundle ().Factory ().createInstance<Vst::IComponent> (id);
    FaultyStream stream (Edited ());
    CHECK (bare->setState (&stream) == kResultFalse);
    CHECK (bare->getState (&stream) == kResultFalse);
}

TEST_CASE_FIXTURE (StoredStrip,
                   "State: without a tree the block's values stay, one that did not arrive or is none keeps the old")
{
    const double before = Value (2);
    Load (Edited ().substr (0, 11)); // two values less a byte
    CHECK (Value (0) == 0.25);
    CHECK (Value (2) == before);

    Load ("----" + Big (0x7FC00000, 4) + Big (0x7F800000, 4) + Big (0xFF800000, 4) + Big (0x40000000, 4)); // none, ends
    CHECK (Value (0) == 0.25);
    CHECK (Value (1) == 1.0);
    CHECK (Value (2) == 0.0);
    CHECK (Value (3) == 1.0);
}

TEST_CASE_FIXTURE (StoredStrip,
                   "State: the morph of the block goes by the old set, so that a broken tree loses the block's edits")
{
    auto state = Edited ();
    Load (state.replace (92, 4, "XXXX"));
    CHECK (Value (0) == 0.25);
    CHECK (Value (20) == 0.5);
    CHECK (instance.Parameters ().ToPlain (1, Value (1)) == 215.0); // row 4
}

TEST_CASE_FIXTURE (StoredStrip, "State: streams that fail, move little or cannot seek harm nothing")
{
    Start ();
    const auto use = [&] (auto&& breakStream)
    {
        FaultyStream stream (Edited ());
        breakStream (stream);
        instance.Component ().setState (&stream);
        FaultyStream out;
        breakStream (out);
        const tresult saved = instance.Component ().getState (&out);
        CHECK (stream.addRef () + out.addRef () == 4); // held by nobody
        CHECK (AllFinite (Run (0.5f, 64)));
        return saved;
    };
    for (std::size_t place = 0; place <= kStateBytes; place += 4)
    {
        const tresult saved = use ([place] (FaultyStream& stream) { stream.failsFrom = place; });
        CHECK ((place >= 92 || saved == kInternalError));
    }
    for (const int32 longest : { 0, 3, 7 })
        use ([longest] (FaultyStream& stream) { stream.longestMove = longest; });
    use ([] (FaultyStream& stream) { stream.canSeek = false; });
}
