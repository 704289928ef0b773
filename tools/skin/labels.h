#pragma once

#include "figures.h"
#include "type.h"

namespace tessaly::skin
{

/// What a label belongs to: a section that is off dims its labels.
enum LabelGroup : std::uint32_t
{
    kAlwaysLit = 0,
    kCompressorLabels = 1,
    kEqualizerLabels = 2,
    kTotalGainLabels = 4
};

/// Every text and glyph of the panel itself; those of the groups in `off` are dimmed and stay where they are.
void DrawLabels (Picture& picture, std::uint32_t off);

/// The numbers round the lens and the word below it; also drawn over the panel while the dial is held.
void DrawMorphLabels (Picture& picture, Ink numbers, Ink word);

/// The bench where these labels stand: smoothed letters that are written over others come out too heavy.
void CoverMorphLabels (Picture& picture);

/// LOW, MID, HIGH: drawn by the lamps of the bands, and on the panel only while the equalizer is off.
void DrawBandNamesOff (Picture& picture);

} // namespace tessaly::skin
