#pragma once

#include "control.h"
#include <cstdint>
#include <vector>

namespace tessaly
{

class ZBitmap;

/// A strip of words, one for each position of a list, of which one is chosen. A press chooses the word under it; sliding
/// on with the button held chooses nothing further.
///
/// The image has a row for each position, in three looks one below the other: normal, bright, inactive.
class ZAMX_KneeSwitch final : public ZControl
{
public:
    using ZControl::ZControl;

    /// Images borrowed. @param count  of positions  @param height  of a row in pixels
    void SetImages (ZBitmap* whileActive, ZBitmap* whileInactive, std::int32_t count, std::int32_t height);
    /// In the parent's coordinates, in the order of the positions; where two overlap the first counts.
    void SetRegions (const ZRect* rects, std::int32_t count) { regions.assign (rects, rects + count); }
    void SetBright (bool on, bool redraw);        ///< redraw: the pane is to be painted again
    std::int32_t FindRegion (ZPoint point) const; ///< the present position beside all regions

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override;

    // Wheel and keys do nothing while the mouse is disabled
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;

private:
    void Choose (std::int32_t index);
    bool StepIndex (std::int32_t delta);
    void DrawRow (ZCanvas& canvas, const ZBitmap* image, std::int32_t row) const;

    ZBitmap* activeImage = nullptr;   // not owned: the editor's cache
    ZBitmap* inactiveImage = nullptr; // likewise
    std::int32_t positions = 0;
    std::int32_t rowHeight = 0; // pixels
    std::vector<ZRect> regions;
    bool pressed = false;
    bool bright = false;
};

} // namespace tessaly
