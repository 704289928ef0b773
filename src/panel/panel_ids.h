#pragma once

#include <cstdint>

namespace tessaly
{

/// Ids of the panel's controls that are bound to no parameter. Ids of parameters are those of channel_strip_parameters.h
/// and lie below; an id of a meter is its index in the ZVuBuffer.
enum PanelId : std::int32_t
{
    kAboutCloseId = 30000, // invisible, over the open about picture
    kAboutOpenId = 30001,  // invisible, over the product's name
    kCompBackId = 30002,   // the dimmed compressor section
    kEqBackId = 30003,     // the dimmed bands
    kTotalGainBackId = 30004,
    kMeterCoverId = 30005, // over the place of a second output meter
    kLowLedId = 30006,
    kMidLedId = 30007,
    kHighLedId = 30008,
    kCompGraphId = 30009,
    kEqGraphId = 30010,
    kNameButtonId = 30011,
    kFileDialogId = 30012,
    kAboutPictureId = 30013,
    kMorphOverlayId = 30014
};

/// Messages of controls to the editor, by BroadcastMessage.
enum PanelMessage : std::int32_t
{
    kEditingEnded = 0, // from dials and the EQ graph
    kEditingStarted = 1,
    kTouchStarted = 2, // from value read-outs
    kTouchGoesOn = 3,
    kTouchEnded = 4
};

} // namespace tessaly
