#include "vu_buffer.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("ZVuBuffer: a value is seen when its block has ended, however short the block")
{
    ZVuBuffer meters (2, 0.25f);
    CHECK (meters.Get (1) == 0.25f);
    float value = 0.5f;
    for (const auto samples : { 0, 1, 64, 100000 })
    {
        meters.BeginBlock (0);
        meters.Write (1, value += 1.0f, 0);
        CHECK (meters.Get (1) == value - (samples == 0 ? 1.25f : 1.0f));
        meters.EndBlock (samples);
        CHECK (meters.Get (1) == value);
    }
    CHECK (meters.Get (0) == 0.25f);
}

TEST_CASE ("ZVuBuffer: an offset of 100 samples holds a value back over a block of 64")
{
    ZVuBuffer meters (1, 0.0f);
    meters.BeginBlock (100);
    meters.Write (0, 0.5f, 0);
    meters.EndBlock (64);
    CHECK (meters.Get (0) == 0.0f);
    meters.EndBlock (64);
    CHECK (meters.Get (0) == 0.5f);
}

TEST_CASE ("ZVuBuffer: a direct value is seen at once and drops what waits, Flush shows what is due")
{
    ZVuBuffer meters (1, 0.0f);
    meters.Write (0, 0.5f, 10);
    meters.SetDirect (0, 0.75f);
    meters.EndBlock (64);
    CHECK (meters.Get (0) == 0.75f);
    meters.Write (0, 0.5f, 0);
    meters.Flush ();
    CHECK (meters.Get (0) == 0.5f);
    for (const auto bad : { -1, 1 }) // no such meter
    {
        meters.Write (bad, 0.25f, 0);
        meters.SetDirect (bad, 0.25f);
        CHECK (meters.Get (bad) == 0.0f);
    }
}

TEST_CASE ("ZTemplateVuBufferInfo: the ring goes round, and a time within the queue has its value")
{
    ZTemplateVuBufferInfo<float, 4> meter;
    float value = 0.0f;
    for (int round = 0; round < 10; ++round)
    {
        for (const auto time : { 1, 5 })
            meter.Write (&(value += 1.0f), time);
        float out = 0.0f;
        meter.GetAt (&out, 0);
        CHECK (out == value - 2.0f);
        meter.GetAt (&out, 4);
        CHECK (out == value - 1.0f);
        meter.GetAt (&out, 5);
        CHECK (out == value);
        meter.Advance (5);
        meter.Consume ();
        meter.GetHeld (&out);
        CHECK (out == value);
    }
}
