#pragma once

#include "geometry.h"
#include "panel_ids.h"
#include "strip_parameter.h"
#include <array>
#include <cstdint>
#include <string_view>

/// Where everything on the panel stands and which image it shows: the one table of the layout, in pixels of the panel
/// at scale 1, left to right and top to bottom. Rows are in the order in which the controls are made, which is the order
/// of drawing within a layer. Strips are frames from top to bottom; a column is another look, to the right.
namespace tessaly::layout
{

constexpr ZRect At (std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height)
{
    return { left, top, left + width, top + height };
}

inline constexpr std::int32_t kPanelWidth = 560;
inline constexpr std::int32_t kPanelHeight = 315;
inline constexpr ZRect kWholePanel = At (0, 0, kPanelWidth, kPanelHeight);
inline constexpr std::string_view kPanelImage = "MONO_tsly_bak.png";

/// Columns of strips with several looks.
inline constexpr std::int32_t kNormalColumn = 0;
inline constexpr std::int32_t kBrightColumn = 1;
inline constexpr std::int32_t kInactiveColumn = 2; // of dials and of the value font
inline constexpr std::int32_t kModifiedColumn = 2; // of the morph dial, which has no inactive look of its own

// Sections that are off: pictures that cover them
struct PicturePlace
{
    std::int32_t id;
    std::string_view image;
    ZRect frame;
    ZPoint source;
};
inline constexpr PicturePlace kCompBack{ kCompBackId, "tsly_bak_cmp.png", At (27, 57, 209, 176), { 0, 0 } };
inline constexpr PicturePlace kEqBack{ kEqBackId, "tsly_bak_eq.png", At (283, 138, 250, 79), { 0, 0 } };
inline constexpr PicturePlace kTotalGainBack{ kTotalGainBackId, "tsly_bak_eq.png", At (283, 218, 250, 21), { 0, 80 } };
inline constexpr PicturePlace kMeterCover{ kMeterCoverId, "tsly_bak_met_eq.png", At (501, 58, 9, 74), { 0, 0 } };
inline constexpr PicturePlace kMorphOverlay{ kMorphOverlayId, "tsly_bak_on.png", kWholePanel, { 0, 0 } };

/// What kind of small dial: a gain rests in the middle, at 0 dB.
enum class DialKind
{
    plain,
    centreDetent
};

/// A small dial and the ring that grows out of it, at one centre.
struct SmallDialPlace
{
    StripParameter parameter;
    DialKind kind;
    ZPoint topLeft;
};
inline constexpr std::int32_t kDialFrames = 101;
inline constexpr std::int32_t kSmallDialSize = 13;
inline constexpr ZPoint kSmallDialCentre{ 7, 7 };
inline constexpr std::int32_t kRingSize = 107;
inline constexpr ZPoint kRingCentre{ 54, 54 };
inline constexpr std::int32_t kDialBegin = 30; // degrees, 0 is down, clockwise
inline constexpr std::int32_t kDialEnd = 330;
inline constexpr std::int32_t kFirstDragMode = 4; // until a press sets the host's knob mode

constexpr std::string_view SmallDialImage (DialKind kind)
{
    return kind == DialKind::centreDetent ? "tsly_knb_cet.png" : "tsly_knb.png";
}
constexpr std::string_view RingImage (DialKind kind)
{
    return kind == DialKind::centreDetent ? "tsly_knb_gid_cet.png" : "tsly_knb_gid.png";
}

inline constexpr std::array<SmallDialPlace, 6> kCompDials{ {
    { StripParameter::attack, DialKind::plain, { 83, 65 } },
    { StripParameter::release, DialKind::plain, { 83, 83 } },
    { StripParameter::ratio, DialKind::plain, { 83, 101 } },
    { StripParameter::sideChainFreq, DialKind::plain, { 83, 197 } },
    { StripParameter::sideChainGain, DialKind::centreDetent, { 83, 215 } },
    { StripParameter::sideChainQ, DialKind::plain, { 83, 179 } },
} };
inline constexpr std::array<SmallDialPlace, 8> kEqDials{ {
    { StripParameter::totalGain, DialKind::centreDetent, { 474, 223 } },
    { StripParameter::highFreq, DialKind::plain, { 474, 171 } },
    { StripParameter::highGain, DialKind::centreDetent, { 474, 189 } },
    { StripParameter::midFreq, DialKind::plain, { 387, 171 } },
    { StripParameter::midGain, DialKind::centreDetent, { 387, 189 } },
    { StripParameter::midQ, DialKind::plain, { 387, 153 } },
    { StripParameter::lowFreq, DialKind::plain, { 300, 171 } },
    { StripParameter::lowGain, DialKind::centreDetent, { 300, 189 } },
} };

/// A value read-out: in the lower layer, and for all but "Drive" once more in the upper one, over the open ring.
struct ValueTextPlace
{
    StripParameter parameter;
    ZRect frame;
};
inline constexpr std::array<ValueTextPlace, 6> kCompTexts{ {
    { StripParameter::attack, At (109, 66, 25, 11) },
    { StripParameter::release, At (109, 84, 25, 11) },
    { StripParameter::ratio, At (109, 102, 25, 11) },
    { StripParameter::sideChainFreq, At (104, 198, 30, 11) },
    { StripParameter::sideChainGain, At (109, 216, 25, 11) },
    { StripParameter::sideChainQ, At (109, 180, 25, 11) },
} };
inline constexpr ValueTextPlace kDriveText{ StripParameter::drive, At (190, 221, 25, 11) };
inline constexpr std::array<ValueTextPlace, 8> kEqTexts{ {
    { StripParameter::totalGain, At (495, 224, 25, 11) },
    { StripParameter::highFreq, At (490, 172, 30, 11) },
    { StripParameter::highGain, At (495, 190, 25, 11) },
    { StripParameter::lowFreq, At (316, 172, 30, 11) },
    { StripParameter::lowGain, At (321, 190, 25, 11) },
    { StripParameter::midFreq, At (403, 172, 30, 11) },
    { StripParameter::midGain, At (408, 190, 25, 11) },
    { StripParameter::midQ, At (408, 154, 25, 11) },
} };
inline constexpr std::string_view kValueFontImage = "tsly_fon.png";
inline constexpr std::string_view kValueCharacters = "0123456789 .,=/F-+kIN";
inline constexpr std::int32_t kValueCellWidth = 5;
inline constexpr std::int32_t kValueCellHeight = 11;

// Large dials
inline constexpr std::string_view kDriveImage = "tsly_knb_drv.png";
inline constexpr ZRect kDriveDial = At (174, 163, 56, 56);
inline constexpr ZPoint kDriveCentre{ 28, 28 };
inline constexpr std::string_view kMorphImage = "tsly_knb_mrp.png";
inline constexpr ZRect kMorphDial = At (198, 214, 164, 92);
inline constexpr ZPoint kMorphCentre{ 82, 40 };
inline constexpr std::int32_t kMorphBegin = 60; // degrees
inline constexpr std::int32_t kMorphEnd = 300;
inline constexpr ZRect kMorphKnob = At (42, 0, 80, 80);  // in the dial's frame; also where it is hit
inline constexpr ZRect kMorphLabel = At (0, 90, 164, 2); // in the dial's frame

// Switches
inline constexpr std::string_view kKneeImage = "tsly_tsw.png";
inline constexpr ZRect kKneeSwitch = At (29, 136, 117, 13);
inline constexpr std::int32_t kKneePositions = 3;
/// They overlap by a pixel; the first that holds a point is meant.
inline constexpr std::array<ZRect, kKneePositions> kKneeRegions{
    { { 29, 136, 67, 149 }, { 66, 136, 110, 149 }, { 109, 136, 146, 149 } }
};
struct BypassPlace
{
    StripParameter parameter;
    std::string_view image;
    ZRect frame;
    ZRect pressArea;
};
inline constexpr std::int32_t kBypassFrames = 2;
inline constexpr BypassPlace kCompBypass{
    StripParameter::compressorBypass, "tsly_nsw_cmp.png", At (5, 265, 71, 37), { 17, 275, 44, 291 }
};
inline constexpr BypassPlace kEqBypass{
    StripParameter::equalizerBypass, "tsly_nsw_eq.png", At (484, 265, 71, 37), { 516, 275, 543, 291 }
};

// Meters; their ids are indexes of the ZVuBuffer. The second column is the look of a section that is off
struct MeterPlace
{
    std::int32_t meter;
    std::string_view image;
    std::int32_t frames;
    ZRect frame;
};
inline constexpr MeterPlace kCompMeter{ 0, "tsly_lmt_cmp.png", 37, At (244, 59, 5, 71) };
inline constexpr std::array<MeterPlace, 2> kEqMeters{ { { 1, "tsly_lmt_eq.png", 35, At (504, 59, 5, 72) },
                                                        { 2, "tsly_lmt_eq.png", 35, At (512, 59, 5, 72) } } };
inline constexpr ZRect kMonoOutputMeter = At (512, 59, 5, 72); // where the first stands when it is the only one

// Band labels, lit while a band is touched
struct BandLedPlace
{
    std::int32_t id;
    std::string_view image;
    ZRect frame;
};
inline constexpr std::int32_t kLedFrames = 2;
inline constexpr std::array<BandLedPlace, 3> kBandLeds{ {
    { kLowLedId, "tsly_led_low.png", At (283, 138, 26, 13) },
    { kMidLedId, "tsly_led_mid.png", At (370, 138, 23, 13) },
    { kHighLedId, "tsly_led_hig.png", At (457, 138, 27, 13) },
} };

// Graphs
inline constexpr std::string_view kCompGraphImage = "tsly_bak_glp_cmp.png";
inline constexpr ZRect kCompGraph = At (156, 57, 80, 75);
inline constexpr ZRect kCompPlot{ 174, 62, 231, 119 };
inline constexpr ZColor kCompCurve{ 204, 204, 204 };
inline constexpr ZColor kCompCurveInactive{ 102, 102, 102 };
inline constexpr std::int32_t kCompCurveWidth = 2;

inline constexpr std::string_view kEqGraphImage = "tsly_bak_glp_eq.png";
inline constexpr ZRect kEqGraph = At (285, 57, 211, 75);
inline constexpr ZRect kEqPlot{ 302, 62, 491, 119 };
inline constexpr std::array<std::string_view, 3> kMarkerImages{ "tsly_mkr_low.png", "tsly_mkr_mid.png",
                                                                "tsly_mkr_hig.png" };
inline constexpr ZRect kMarkerSource = At (0, 0, 11, 11);
inline constexpr std::int32_t kMarkerInactiveFrame = 2;
struct CurveStyle
{
    ZColor normal;
    ZColor bright;
    ZColor inactive;
    std::uint8_t alpha;
};
inline constexpr CurveStyle kSumCurve{ { 255, 255, 255 }, { 255, 255, 255 }, { 128, 128, 128 }, 51 };
inline constexpr CurveStyle kBandCurve{ { 0, 116, 138 }, { 103, 254, 255 }, { 80, 80, 80 }, 255 };
inline constexpr std::int32_t kEqCurveWidth = 1;

// The set's name and the dialog that chooses one
inline constexpr std::string_view kNameImage = "tsly_pdm.png";
inline constexpr ZRect kNameButton = At (314, 6, 217, 21);
inline constexpr ZRect kNameText{ 4, 4, 196, 17 }; // in the button's frame
inline constexpr ZColor kNameColor{ 171, 240, 251 };
inline constexpr std::int32_t kListFontSize = 11; // of the name, too
inline constexpr std::uint32_t kClickRepeatMs = 200;

inline constexpr std::string_view kDialogImage = "tsly_bak_dlg.png";
inline constexpr ZRect kDialog = At (311, 37, 232, 269);
inline constexpr std::int32_t kDialogRows = 12;
inline constexpr ZColor kDialogText{ 0, 0, 0 };
inline constexpr ZColor kDialogSelection{ 113, 234, 255 };
inline constexpr ZColor kDialogThumb{ 140, 152, 167 };
inline constexpr std::int32_t kDialogThumbInset = 1;
inline constexpr std::string_view kFolderImage = "tsly_nsw_fld.png";
inline constexpr ZRect kFolderIcon = At (0, 0, 9, 8);
inline constexpr std::int32_t kFolderFrames = 2;
inline constexpr std::int32_t kFolderGap = 10;
/// Items of the dialog by their index in ZAMX_FileDialog; no image: drawn by the dialog, or not at all.
struct DialogItemPlace
{
    std::int32_t item;
    std::string_view image;
    std::int32_t frames;
    ZRect rect;
};
inline constexpr std::array<DialogItemPlace, 8> kDialogItems{ {
    { 0, "tsly_nsw_ok.png", 3, { 361, 279, 423, 298 } },
    { 1, "tsly_nsw_ccl.png", 2, { 431, 280, 491, 297 } },
    { 2, "", 0, { 319, 45, 520, 272 } },
    { 3, "tsly_nsw_top.png", 2, { 520, 45, 535, 59 } },
    { 4, "tsly_nsw_btm.png", 2, { 520, 258, 535, 272 } },
    { 5, "tsly_nsw_up.png", 2, { 520, 60, 535, 74 } },
    { 6, "tsly_nsw_dwn.png", 2, { 520, 243, 535, 257 } },
    { 8, "", 0, { 520, 75, 535, 242 } }, // the track; the thumb, 7, follows from it
} };

// About
inline constexpr ZRect kAboutOpenArea = At (32, 10, 194, 17);
inline constexpr std::string_view kAboutImage = "tsly_bak_abt.png";
inline constexpr ZRect kAboutLine1{ 20, 275, 260, 286 };
inline constexpr ZRect kAboutLine2{ 20, 289, 640, 300 }; // cut at the panel's edge
inline constexpr std::int32_t kAboutFontSize = 10;
inline constexpr ZColor kAboutColor{ 255, 255, 255 };

} // namespace tessaly::layout
