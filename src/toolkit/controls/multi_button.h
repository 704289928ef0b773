#pragma once

#include "control.h"
#include "listener.h"
#include <cstdint>
#include <memory>
#include <vector>

namespace tessaly
{

/// A radio group: one value with positions, and a button for each position that has one. The buttons have frames in the
/// coordinates of the group's parent and ids of their own, and are in no view: the group draws them and routes their
/// input. A second press on the selected button selects the off index when that button turns off.
class ZMultiButton : public ZControl, public ZListener
{
public:
    ZMultiButton (ZPaneOwner* paneOwner, std::int32_t controlId); ///< its frame is zero
    ~ZMultiButton () override;

    /// Takes an on/off or a click button. @return the button, borrowed; null for null
    ZControl* AddButton (std::int32_t index, std::unique_ptr<ZControl> button);
    void DeleteAllButtons ();
    void SetOffIndex (std::int32_t index) { offIndex = index; }
    std::int32_t GetOffIndex () const { return offIndex; }

    void SetValue (float newValue) override;
    void OnValue (std::int32_t id, float sent) override; ///< from a button
    bool IsDirty () const override;
    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override;
    std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse) override;

protected:
    bool OverlapsUpdate (const ZRect& update) const override;

private:
    static constexpr std::int32_t kNoIndex = -1;
    struct Entry
    {
        std::int32_t index;
        std::unique_ptr<ZControl> button;
    };

    void EndPress ();
    void DrawButtons (ZCanvas& canvas, std::uint32_t time);

    std::vector<Entry> entries; // in the order of adding
    std::int32_t offIndex = 0;

    // Of the present press
    ZControl* capturedButton = nullptr; // not owned: one of `entries`, or null; EndPress clears it
    std::int32_t pressIndex = kNoIndex; // that the button's turning on selects
    std::int32_t releaseIndex = kNoIndex;
};

} // namespace tessaly
