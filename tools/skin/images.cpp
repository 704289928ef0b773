#include "images.h"

#include "about.h"
#include "band_lamp.h"
#include "bypass_button.h"
#include "dialog.h"
#include "drive_dial.h"
#include "figures.h"
#include "frames.h"
#include "graphs.h"
#include "guide_ring.h"
#include "knee_switch.h"
#include "markers.h"
#include "meters.h"
#include "morph_dial.h"
#include "name_strip.h"
#include "overlay.h"
#include "panel.h"
#include "small_dial.h"
#include "value_font.h"

namespace tessaly::skin
{

namespace
{

/// A drawing of one frame, as one of a strip.
template <void (*draw) (Picture&)>
void Whole (Picture& picture, std::int32_t, std::int32_t)
{
    draw (picture);
}

constexpr auto kCharacters = static_cast<std::int32_t> (kValueCharacters.size ());

// clang-format off
constexpr Image kImages[]{
    { "MONO_tsly_bak",    560, 315, 1, 1, Whole<DrawPanel> },
    { "tsly_bak_cmp",     209, 176, 1, 1, Whole<DrawCompressorOff> },
    { "tsly_bak_eq",      250, 101, 1, 1, Whole<DrawEqualizerOff> },
    { "tsly_bak_glp_cmp",  80,  75, 1, 1, Whole<DrawCompressorGraph> },
    { "tsly_bak_glp_eq",  211,  75, 1, 1, Whole<DrawEqualizerGraph> },
    { "tsly_bak_met_eq",    9,  74, 1, 1, Whole<DrawMeterCover> },
    { "tsly_bak_abt",     560, 315, 1, 1, Whole<DrawAbout> },
    { "tsly_bak_on",      560, 315, 1, 1, Whole<DrawOverlay> },
    { "tsly_bak_dlg",     232, 269, 1, 1, Whole<DrawDialog> },
    { "tsly_knb",          13,  13, 3, kDialFrames, DrawSmallDial },
    { "tsly_knb_cet",      13,  13, 3, kDialFrames, DrawSmallGainDial },
    { "tsly_knb_gid",     107, 107, 1, kDialFrames, DrawGuideRing },
    { "tsly_knb_gid_cet", 107, 107, 1, kDialFrames, DrawGainGuideRing },
    { "tsly_knb_drv",      56,  56, 3, kDialFrames, DrawDriveDial },
    { "tsly_knb_mrp",     164,  92, 3, kDialFrames, DrawMorphDial },
    { "tsly_tsw",         117,  13, 1, 9, DrawKneeSwitch },
    { "tsly_nsw_cmp",      71,  37, 1, 2, DrawCompressorBypass },
    { "tsly_nsw_eq",       71,  37, 1, 2, DrawEqualizerBypass },
    { "tsly_led_low",      26,  13, 1, 2, DrawLowLamp },
    { "tsly_led_mid",      23,  13, 1, 2, DrawMidLamp },
    { "tsly_led_hig",      27,  13, 1, 2, DrawHighLamp },
    { "tsly_lmt_cmp",       5,  71, 2, 37, DrawReductionMeter },
    { "tsly_lmt_eq",        5,  72, 2, 35, DrawOutputMeter },
    { "tsly_mkr_low",      11,  11, 1, 3, DrawLowMarker },
    { "tsly_mkr_mid",      11,  11, 1, 3, DrawMidMarker },
    { "tsly_mkr_hig",      11,  11, 1, 3, DrawHighMarker },
    { "tsly_fon",           5,  11, 3, kCharacters, DrawValueFont },
    { "tsly_pdm",         217,  21, 1, 1, Whole<DrawNameStrip> },
    { "tsly_nsw_ok",       62,  19, 1, 3, DrawOkKey },
    { "tsly_nsw_ccl",      60,  17, 1, 2, DrawCancelKey },
    { "tsly_nsw_top",      15,  14, 1, 2, DrawToTopKey },
    { "tsly_nsw_btm",      15,  14, 1, 2, DrawToBottomKey },
    { "tsly_nsw_up",       15,  14, 1, 2, DrawLineUpKey },
    { "tsly_nsw_dwn",      15,  14, 1, 2, DrawLineDownKey },
    { "tsly_nsw_fld",       9,   8, 1, 2, DrawFolder },
};
// clang-format on

} // namespace

std::span<const Image> Images ()
{
    return kImages;
}

Picture Draw (const Image& image, std::int32_t density)
{
    Picture picture (image.width * image.columns, image.height * image.rows, density);
    for (std::int32_t row = 0; row < image.rows; ++row)
        for (std::int32_t column = 0; column < image.columns; ++column)
        {
            const ZPoint place{ column * image.width, row * image.height };
            picture.BeginFrame (ZRect{ 0, 0, image.width, image.height } + place);
            image.drawFrame (picture, column, row);
        }
    return picture;
}

} // namespace tessaly::skin
