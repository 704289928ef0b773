#pragma once

#include "matrix_menu_imp.h"
#include "menu_grid.h"
#include "overlay_style.h"
#include <cstdint>

namespace tessaly
{

/// A menu that is drawn on the canvas, kept inside of the root view. It opens on the press and stays open; until a
/// choice or a dismissal its control is the owner's modal pane, which a press elsewhere closes.
///
/// Mouse: the item under the pointer is highlighted; a press and release on an item chooses it, and so does the release
/// of the press that opened the menu if the pointer has been moved since. Keys: the arrows move the highlight past what
/// is disabled, across columns and around the ends; home and end go to the first and the last item, a character to the
/// next item that begins with it; return, enter and space choose, escape dismisses. Every key is taken.
/// Host's user-interface thread.
class ZCanvasMenuImp final : public ZMatrixMenuImp
{
public:
    /// @param measuringCanvas  borrowed: of the kind that is painted on; outlives this
    explicit ZCanvasMenuImp (ZCanvas& measuringCanvas, ZOverlayStyle menuStyle = {});

    bool Open (ZEvent& event, const ZMouseInput& mouse) override; ///< false without items, too
    bool Close (bool commit) override;
    bool IsOpen () const override { return grid.GetCount () > 0; }
    ZRect GetOpenRect () const override { return grid.GetRect (); }

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override { DrawActive (canvas, time); }
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override; ///< moves the highlight
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool OnKeyRepeat (ZEvent& event, const ZKeyInput& key) override { return OnKeyDown (event, key); }
    bool OnKeyUp (ZEvent& /*event*/, const ZKeyInput& /*key*/) override { return true; }
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override; ///< the highlight follows a free pointer, too

private:
    void Lay (ZPoint point);
    std::int32_t EnabledAt (ZPoint point) const; // point: in handler coordinates; -1: none
    void Follow (ZPoint point);                  // a moved pointer highlights what is under it
    void Highlight (std::int32_t index);
    void Choose (std::int32_t index);
    void HighlightNext (std::int32_t step);   // in the order of the items, around the ends
    void HighlightBeside (std::int32_t step); // in the next column
    void HighlightFirst (char letter);
    void UseFont (ZCanvas& canvas) const;
    void DrawItem (ZCanvas& canvas, std::int32_t index, ZPoint origin) const;

    ZCanvas& measure; // not owned: the window's
    ZOverlayStyle style;
    ZMenuGrid grid; // filled while open
    std::int32_t highlighted = -1;
    bool armed = false; // a release chooses
    ZPoint pressPoint;  // of the press that opened the menu; handler coordinates, as below
    ZPoint lastPoint;   // of the pointer: one that rests leaves the highlight to the keys
};

} // namespace tessaly
