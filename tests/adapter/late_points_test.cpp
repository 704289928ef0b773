#include "block_pace.h"
#include "joined_halves.h"
#include "late_delivery.h"
#include "late_points.h"
#include "parameter_storage_base.h"
#include <thread>

// What reaches the strip of the points that Ardour sends with its blocks, by a clock of the test's own.

using namespace tessaly;
using namespace tessaly::test;

namespace
{

constexpr float kStep = 1.0f / 360.0f; // of "Mid G"

/// The late points of a strip of their own.
struct Late
{
    Late ()
    {
        handClockMs = 1000;
        CHECK (halves.controller->GetInfo (kCodeStorage, &storage));
        points = std::make_unique<ardour::LatePoints> (
            *halves.Effect (), *storage, [this] { ++moves; }, [] { return handClockMs.load (); });
        points->OnBlock (false);
    }
    float Value (std::uint32_t id) const { return storage->GetNormalized (static_cast<std::int32_t> (id)); }
    void Send (std::uint32_t id, float value)
    {
        points->Note (id, value);
        points->Deliver ();
    }

    JoinedHalves halves;
    ZParameterStorageBase* storage = nullptr;
    int moves = 0;
    std::unique_ptr<ardour::LatePoints> points;
};

} // namespace

TEST_CASE ("A late point reaches the strip once, the newest of its id")
{
    Late late;
    late.points->Note (kMidGain, 0.25f);
    late.Send (kMidGain, 0.75f);
    CHECK (late.Value (kMidGain) == 0.75f);
    late.halves.Effect ()->SetParameter (kMidGain, 0.5f);
    late.points->Deliver ();
    CHECK (late.Value (kMidGain) == 0.5f);
    CHECK (late.moves == 1);
}

TEST_CASE ("Morph goes before what it moves, and a late point of the step that is set leaves an edit alone")
{
    Late late;
    late.points->Note (kMidGain, 0.25f); // comes first
    late.Send (kMorph, 0.5f);
    CHECK (late.Value (kMidGain) == 0.25f);
    late.Send (kMorph, 0.5f);
    late.Send (kMidGain, 0.25f + 0.3f * kStep);
    CHECK (late.Value (kMidGain) == 0.25f);
    CHECK (late.moves == 1);
}

TEST_CASE ("An echo of the user's own drag is dropped, held or just let go")
{
    Late late;
    late.points->Hold (kMidGain);
    handClockMs += 5000;
    late.Send (kMidGain, 0.25f);
    CHECK (late.Value (kMidGain) == 0.5f);
    late.points->LetGo (kMidGain);
    handClockMs += ardour::LatePoints::kAfterEditMs - 1;
    late.Send (kMidGain, 0.25f);
    CHECK (late.Value (kMidGain) == 0.5f);
    late.points->OnToldByHost (kMidGain, 0.5f);
    handClockMs += 2 + ardour::LatePoints::kAfterToldMs;
    late.points->OnEdited (kMidGain);
    late.points->OnToldByHost (kMidGain, 0.5f); // a shorter time, which does not cut that one
    handClockMs += ardour::LatePoints::kAfterEditMs - 1;
    late.Send (kMidGain, 0.25f);
    CHECK (late.Value (kMidGain) == 0.5f);
    handClockMs += 2;
    late.Send (kMidGain, 0.25f);
    CHECK (late.Value (kMidGain) == 0.25f);
}

TEST_CASE ("A host that tells of a lane itself, late, is left alone; one that is up to date is not")
{
    Late late;
    late.Send (kMidGain, 0.75f);
    late.points->OnToldByHost (kMidGain, 0.75f); // a copy of the newest
    late.Send (kMidGain, 0.8f);
    CHECK (late.Value (kMidGain) == 0.8f);
    late.points->OnToldByHost (kMidGain, 0.75f); // stale
    late.Send (kMidGain, 0.9f);
    CHECK (late.Value (kMidGain) == 0.8f);
    handClockMs += ardour::LatePoints::kAfterToldMs + 1;
    late.Send (kMidGain, 0.9f);
    CHECK (late.Value (kMidGain) == 0.9f);
}

TEST_CASE ("A value that the host was made to read is dropped when it comes back, another one is not")
{
    Late late;
    for (const float value : { 0.25f, 0.75f, 0.3f, 0.35f })
        late.points->OnRead (kMidGain, value);
    for (const float value : { 0.25f, 0.75f, 0.3f, 0.35f, 0.25f }) // every time
        late.Send (kMidGain, value);
    CHECK (late.Value (kMidGain) == 0.5f);
    late.Send (kMidGain, 0.8f);
    CHECK (late.Value (kMidGain) == 0.8f);
    handClockMs += ardour::LatePoints::kAfterEditMs + 1;
    late.Send (kMidGain, 0.75f);
    CHECK (late.Value (kMidGain) == 0.75f);
}

TEST_CASE ("What a host told while no blocks ran comes with the first one, whenever, and is dropped once")
{
    for (const bool isOffline : { false, true })
    {
        Late late;
        const float moved = late.Value (kMidGain);
        late.points->OnStop ();
        late.points->OnEachTold (kMidGain, 0.25f);
        handClockMs += 60000;
        late.points->Note (kMidGain, 0.25f);
        late.points->OnBlock (isOffline);
        isOffline ? late.points->DeliverOffline () : late.points->Deliver ();
        CHECK (late.Value (kMidGain) == moved);
        late.Send (kMidGain, 0.25f);
        CHECK (late.Value (kMidGain) == 0.25f);
        late.points->OnEachTold (kMidGain, 0.25f); // its point has come already
        late.halves.Effect ()->SetParameter (kMidGain, 0.5f);
        late.Send (kMidGain, 0.25f);
        CHECK (late.Value (kMidGain) == 0.25f);
    }
}

TEST_CASE ("The thread delivers by itself, and when the module goes it ends, whoever has joined")
{
    Late late;
    ardour::LateDelivery::Join (*late.points);
    late.points->Note (kMidGain, 0.75f);
    while (late.Value (kMidGain) != 0.75f)
        std::this_thread::yield ();
    ardour::LateDelivery::End ();
    late.points->Note (kMidGain, 0.25f);
    CHECK (late.Value (kMidGain) == 0.75f);
    ardour::LateDelivery::Leave (*late.points);
}

TEST_CASE ("A bounce is told from playback by its pace, and from bursts of it")
{
    constexpr std::int64_t kBlockNs = 1024 * 1'000'000'000LL / 48000;
    ardour::BlockPace pace;
    pace.Reset (48000.0, 1024);
    std::int64_t now = 1;
    int found = 0;
    for (int i = 0; i < 1000; ++i) // four blocks in a row, then nothing for as long
        found += pace.IsAhead (1024, now += i % 4 == 0 ? 4 * kBlockNs : 0) ? 1 : 0;
    CHECK (found == 0);
    for (int round = 0; round < 2; ++round)
    {
        // Of blocks at one time each adds one to 0.95 of what was ahead before: 1, 1.95, 2.85, 3.71, 4.52 blocks.
        pace.IsAhead (1024, now += 1'000'000'000);
        for (int i = 1; i < 100; ++i)
            CHECK (pace.IsAhead (1024, now) == (i >= 5));
        for (int i = 1; i <= 14; ++i) // from the most, eight blocks: 8 * 0.95^13 is 4.1
            CHECK (pace.IsAhead (1024, now += kBlockNs) == (i < 14));
    }
    CHECK_FALSE (pace.IsAhead (0, 1));
}
