#include "effect_listener.h"
#include "strip_in_host.h"
#include <atomic>
#include <thread>

// Hosts that end an instance, or one half of it, on one thread while another one is at it. Looked at by ThreadSanitizer.

using namespace Steinberg;
using namespace tessaly;
using namespace tessaly::test;

TEST_CASE ("The processor ends on one thread while the controller is called on others, its message swallowed")
{
    for (int i = 0; i < 20; ++i)
    {
        StripInHost strip; // its connection drops messages off the main thread
        auto& controller = strip.instance.Controller ();
        std::atomic<int> ready = 0;
        std::atomic<bool> ended = false;
        const auto repeat = [&] (auto call)
        {
            ++ready;
            for (int more = 50; more > 0; more -= ended ? 1 : 0)
                call (more);
        };
        std::thread reader ( // parameter objects that are made anew under it would be a race
            [&]
            {
                Vst::ParameterInfo info{};
                repeat ([&] (int index) { controller.getParameterInfo (index % 22, info); });
            });
        std::thread worker (
            [&]
            {
                while (ready < 2)
                    std::this_thread::yield ();
                strip.instance.Component ().terminate ();
                ended = true;
            });
        double value = 0.0;
        repeat ([&] (int) { controller.setParamNormalized (kMorph, value = 1.0 - value); });
        reader.join ();
        worker.join ();
        CHECK (controller.getParameterCount () == 0);
        CHECK (controller.setParamNormalized (kMorph, 1.0) == kResultFalse);
    }
}

TEST_CASE ("The editor is left alone when its disconnection returns, in the midst of automation")
{
    struct Slow final : ZEffectListener
    {
        bool OnEffectEvent (std::int32_t, void*) override
        {
            isInside = hasHeard = true;
            std::this_thread::yield ();
            isInside = false;
            return true;
        }
        bool OnEffectEvent2 (std::int32_t, void*) override { return false; }
        std::atomic<bool> isInside = false;
        std::atomic<bool> hasHeard = false;
    };
    StripInHost strip;
    strip.Start (Vst::kOffline);
    std::atomic<bool> done = false;
    std::thread audio (
        [&]
        {
            for (double position = 0.0; !done; position = 1.0 - position)
                strip.Run (0.5f, 64, { { kMorph, position, 0 } }); // seventeen events
        });
    for (int i = 0; i < 300; ++i)
    {
        Slow editor;
        ZEffectListener* const pointer = &editor;
        CHECK (Send (&strip.instance.Component (), "ConnectEditorPointer", &pointer, sizeof (pointer)) == kResultOk);
        while (!editor.hasHeard)
            std::this_thread::yield ();
        CHECK (Send (&strip.instance.Component (), "DisconnectEditorPointer", &pointer, 1) == kResultOk);
        CHECK_FALSE (editor.isInside);
    }
    done = true;
    audio.join ();
}
