#include "public.sdk/source/vst/utility/memoryibstream.h"
#include "state_bytes.h"
#include "strip_in_host.h"
#include <algorithm>
#include <cstring>
#include <doctest/doctest.h>
#include <limits>

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

namespace
{

/// A host's stream over bytes, with the faults that a test asks for.
class FaultyStream final : public IBStream
{
public:
    explicit FaultyStream (Bytes content = {})
        : bytes (std::move (content))
    {
    }

    std::size_t longestMove = std::numeric_limits<std::size_t>::max (); ///< of one call
    std::size_t failsFrom = std::numeric_limits<std::size_t>::max ();   ///< position
    bool repeats = false;                                               ///< endless: the bytes over and over
    bool canSeek = true;
    int32 lie = 0; ///< added to every count

    const Bytes& Content () const { return bytes; }

    tresult PLUGIN_API read (void* buffer, int32 count, int32* done) override
    {
        if (position >= failsFrom)
            return kInternalError;
        const auto size = repeats ? std::numeric_limits<std::size_t>::max () : bytes.size ();
        const auto moved =
            std::min ({ static_cast<std::size_t> (count), size - std::min (size, position), longestMove });
        for (std::size_t i = 0; i < moved; ++i)
            static_cast<char*> (buffer)[i] = bytes[(position + i) % bytes.size ()];
        position += moved;
        *done = static_cast<int32> (moved) + lie;
        return kResultOk;
    }
    tresult PLUGIN_API write (void* buffer, int32 count, int32* done) override
    {
        if (position >= failsFrom)
            return kInternalError;
        const auto moved = std::min (static_cast<std::size_t> (count), longestMove);
        bytes.resize (position); // ends where it was last written, like some
        bytes.append (static_cast<const char*> (buffer), moved);
        position += moved;
        *done = static_cast<int32> (moved) + lie;
        return kResultOk;
    }
    tresult PLUGIN_API seek (int64 offset, int32 mode, int64* result) override
    {
        if (!canSeek)
            return kNotImplemented;
        const auto origin = mode == kIBSeekCur ? position : mode == kIBSeekEnd ? bytes.size () : 0;
        const auto wanted = static_cast<int64> (origin) + offset;
        if (wanted < 0)
            return kInvalidArgument;
        position = static_cast<std::size_t> (wanted);
        if (result != nullptr)
            *result = wanted;
        return kResultOk;
    }
    tresult PLUGIN_API tell (int64* result) override
    {
        *result = static_cast<int64> (position);
        return kResultOk;
    }
    tresult PLUGIN_API queryInterface (const TUID, void** out) override
    {
        *out = nullptr;
        return kNoInterface;
    }
    uint32 PLUGIN_API addRef () override { return ++references; }
    uint32 PLUGIN_API release () override { return --references; }
    uint32 references = 1;

private:
    Bytes bytes;
    std::size_t position = 0;
};

Bytes Saved (StripInHost& strip)
{
    FaultyStream stream;
    CHECK (strip.instance.Component ().getState (&stream) == kResultOk);
    CHECK (stream.references == 1);
    return stream.Content ();
}

/// As a host does: the component, then the controller.
tresult Load (StripInHost& strip, const Bytes& state)
{
    FaultyStream stream (state);
    const tresult result = strip.instance.Component ().setState (&stream);
    strip.instance.Controller ().setComponentState (&stream);
    CHECK (stream.references == 1);
    return result;
}

/// A set whose rows are all alike, and values that no morph by it makes.
Bytes Edited (float drive = 0.25f)
{
    std::vector<float> values (22, 0.5f);
    values[0] = drive;
    values[18] = values[19] = values[21] = 0.0f;
    return State (values, KeyPoints ("Mine", 30));
}

} // namespace

TEST_CASE ("State: 812 bytes that another instance gives back as they are, its controller showing the values")
{
    StripInHost fresh;
    const auto initial = Saved (fresh);
    CHECK (initial.size () == 812);
    CHECK (initial.substr (0, 8) == "2620" + Big (0x3F000000, 4)); // "Drive" at its default, a half
    CHECK (initial.substr (92, 4) == "CHST");
    CHECK (initial.substr (100, 4) == "FINF");
    CHECK (Load (fresh, initial) == kResultOk);
    CHECK (Saved (fresh) == initial);

    StripInHost other;
    const auto state = Edited ();
    std::vector<std::byte> bytes (state.size ());
    std::memcpy (bytes.data (), state.data (), state.size ());
    other.instance.LoadState (bytes); // component, then controller, with a stream that cannot go to its end
    CHECK (other.instance.SaveState () == bytes);
    CHECK (other.instance.Parameters ().Normalized (0) == 0.25);
    CHECK (other.instance.Parameters ().Normalized (20) == 0.5);
    CHECK (other.Calls (host::HandlerCall::Kind::performEdit).empty ());
}

TEST_CASE ("State: nothing without an effect or a stream")
{
    StripInHost strip;
    CHECK (strip.instance.Component ().getState (nullptr) == kResultFalse);
    CHECK (strip.instance.Component ().setState (nullptr) == kResultFalse);
    const auto& factory = LoadedBundle ().Factory ();
    const auto bare = factory.createInstance<Vst::IComponent> (LoadedBundle ().FirstAudioEffect ().ID ());
    FaultyStream stream (Edited ());
    CHECK (bare->setState (&stream) == kResultFalse);
    CHECK (bare->getState (&stream) == kResultFalse);
}

TEST_CASE (
    "State: without a tree the values of the block stay, a value that did not arrive or is none keeps the old one")
{
    StripInHost strip;
    const auto before = strip.instance.Parameters ().Normalized (2);
    auto head = Edited ().substr (0, 11); // two values less a byte
    CHECK (Load (strip, head) == kResultOk);
    CHECK (strip.instance.Parameters ().Normalized (0) == 0.25);
    CHECK (strip.instance.Parameters ().Normalized (2) == before);

    head = "----" + Big (0x7FC00000, 4) + Big (0x7F800000, 4) + Big (0xFF800000, 4) + Big (0x40000000, 4); // none, ends
    CHECK (Load (strip, head) == kResultOk);
    CHECK (strip.instance.Parameters ().Normalized (0) == 0.25);
    CHECK (strip.instance.Parameters ().Normalized (1) == 1.0);
    CHECK (strip.instance.Parameters ().Normalized (2) == 0.0);
    CHECK (strip.instance.Parameters ().Normalized (3) == 1.0);
}

TEST_CASE ("State: the morph of the block goes by the old set, so that a broken tree loses the block's edits")
{
    StripInHost strip;
    auto state = Edited ();
    state.replace (92, 4, "XXXX");
    CHECK (Load (strip, state) == kResultOk);
    CHECK (strip.instance.Parameters ().Normalized (0) == 0.25);
    CHECK (strip.instance.Parameters ().Normalized (20) == 0.5);
    CHECK (strip.instance.Parameters ().ToPlain (1, strip.instance.Parameters ().Normalized (1)) == 215.0); // row 4
}

TEST_CASE ("State: streams that fail, move little, cannot seek, lie or never end harm nothing")
{
    StripInHost strip;
    strip.Start ();
    const auto ends = [&strip] (auto&& make)
    {
        FaultyStream stream (Edited ());
        make (stream);
        strip.instance.Component ().setState (&stream);
        FaultyStream out;
        make (out);
        if (!stream.repeats)
            strip.instance.Component ().getState (&out);
        const auto samples = strip.Run (0.5f, 64);
        return std::all_of (samples.begin (), samples.end (), [] (float sample) { return std::isfinite (sample); });
    };
    for (std::size_t place = 0; place <= 812; place += 4)
        CHECK (ends ([place] (FaultyStream& stream) { stream.failsFrom = place; }));
    for (const std::size_t longest : { 0u, 1u, 3u, 4u, 7u })
        CHECK (ends ([longest] (FaultyStream& stream) { stream.longestMove = longest; }));
    for (const int32 lie : { -100, -1, 1, 1 << 30 })
        CHECK (ends ([lie] (FaultyStream& stream) { stream.lie = lie; }));
    CHECK (ends ([] (FaultyStream& stream) { stream.canSeek = false; }));
    CHECK (ends ([] (FaultyStream& stream) { stream.repeats = true; }));

    // Chunks without end and without content
    FaultyStream endless (Edited ().substr (0, 92) + "CHST" + Little (0x7FFFFFFF, 4) + Format () + Bytes (4096, '\0'));
    endless.repeats = true;
    CHECK (strip.instance.Component ().setState (&endless) == kResultOk);

    FaultyStream full;
    full.failsFrom = 40;
    CHECK (strip.instance.Component ().getState (&full) == kInternalError);
    FaultyStream nothing;
    nothing.failsFrom = 0;
    CHECK (strip.instance.Component ().setState (&nothing) == kInternalError);
}
