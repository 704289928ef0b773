#include "built_in_script.h"
#include "gallery_window.h"
#include "pixel_picture.h"
#include "script.h"

#include <doctest/doctest.h>

using namespace tessaly;
using namespace tessaly::gallery;
using namespace tessaly::test;

TEST_CASE ("What is painted bit by bit is what a pass over everything paints, and then nothing is left to paint")
{
    for (const double scale : { 1.0, 1.25, 1.5 })
    {
        GalleryWindow window (scale);
        stage::Play (kBuiltInScript, window,
                     [&] (const std::string& name)
                     {
                         CAPTURE (scale);
                         CAPTURE (name);
                         const Picture before (window.Window ().Surface ());
                         window.Editor ().Invalidate (true);
                         CHECK (window.Window ().Paint ());
                         CHECK (Picture (window.Window ().Surface ()).IsLike (before, 0));
                         CHECK_FALSE (window.Window ().Paint ());
                     });
    }
}
