#pragma once

#include "geometry.h"
#include "input.h"
#include <cstdint>
#include <optional>
#include <string>

namespace tessaly
{

class ZCanvas;
class ZEvent;
class ZPaneOwner;
class ZView;

inline constexpr std::int32_t kNewPaneId = -2; // of a pane that was given none
inline constexpr std::int32_t kEveryPane = -1; // stands for every id in the operations "ById"

/// A rectangle of the surface with an id, flags that pass from a parent to what is in it, and two layers of event
/// entries. The public entries (MouseDown and its like) are called by the owner with points in root coordinates; they
/// test the pane's state, translate, and call the handlers (OnMouseDown and its like), which subclasses override and
/// which see points in the parent's coordinates, those of the frame. A pane draws at its frame's coordinates, too.
/// Invalidation is the dirty flag and nothing else: the next paint pass finds it. Host's user-interface thread.
class ZPane
{
public:
    explicit ZPane (ZPaneOwner* paneOwner); ///< null: a pane outside of any editor
    virtual ~ZPane ();                      ///< leaves its parent and its owner's hands
    ZPane (const ZPane&) = delete;
    ZPane& operator= (const ZPane&) = delete;

    ZPaneOwner* GetOwner () const { return owner; }
    void SetParent (ZView* view) { parent = view; } ///< for ZView::AddPane and RemovePane
    ZView* GetParent () const { return parent; }

    virtual void SetFrame (const ZRect& rect); ///< in the parent's coordinates; the present one changes nothing
    ZRect GetFrame () const { return frame; }
    void MoveTo (ZPoint topLeft);
    ZPoint GetPosition () const { return frame.TopLeft (); }
    ZPoint GetOrigin () const; ///< the parent's (0, 0) in root coordinates
    void SetId (std::int32_t newId) { id = newId; }
    std::int32_t GetId () const { return id; }

    // Painting
    virtual void Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update); ///< draws what is dirty, if visible
    virtual void Draw (ZCanvas& canvas, std::uint32_t time);                       ///< draws, dirty or not

    // Public entries. A true result of MouseDown asks for the capture, one of MouseMove keeps it; of the wheel and the
    // keys it says that the pane took the event.
    virtual bool MouseDown (ZEvent& event, const ZMouseInput& mouse);
    bool MouseMove (ZEvent& event, const ZMouseInput& mouse);
    bool MouseUp (ZEvent& event, const ZMouseInput& mouse);
    bool MouseWheel (ZEvent& event, const ZWheelInput& wheel);
    bool KeyDown (ZEvent& event, const ZKeyInput& key);
    bool KeyRepeat (ZEvent& event, const ZKeyInput& key);
    bool KeyUp (ZEvent& event, const ZKeyInput& key);
    bool OpenModal (ZEvent& event, const ZMouseInput& mouse); ///< true: the pane is now the owner's modal pane
    bool CloseModal (bool commit);
    void MouseEnter (ZEvent& event, const ZMouseInput& mouse);
    void MouseExit (ZEvent& event, const ZMouseInput& mouse);
    void Idle (ZEvent& event, const ZMouseInput& mouse);

    /// Hit test through the tree. @return the topmost pane at the point, or null; never a view
    virtual ZPane* FindPane (ZEvent& event, const ZMouseInput& mouse);

    // State. The questions ask the parents, too; the operations ById call the plain
    // ones, for the pane's id and for kEveryPane.
    virtual void Show ();
    virtual void Hide (); ///< also drops what was dirty: Show makes it dirty again
    void ShowById (std::int32_t paneId);
    void HideById (std::int32_t paneId);
    bool IsVisible () const;
    void SetDirty (bool on) { dirty = on; }
    void SetDirtyById (std::int32_t paneId, bool on);
    virtual bool IsDirty () const;
    virtual void SetActive (bool on); ///< chooses between the active and the inactive look
    void SetActiveById (std::int32_t paneId, bool on);
    bool IsActive () const;
    virtual void SetMouseEnabled (bool on) { mouseEnabled = on; }
    void SetMouseEnabledById (std::int32_t paneId, bool on);
    virtual bool IsMouseEnabled () const;
    void SetWheelEnabled (bool on) { wheelEnabled = on; }
    void SetWheelEnabledById (std::int32_t paneId, bool on);
    bool IsWheelEnabled () const;
    void SetKeyEnabled (bool on) { keyEnabled = on; }
    void SetKeyEnabledById (std::int32_t paneId, bool on);
    bool IsKeyEnabled () const;

    // Where the pane draws and where it is hit: set relative to the frame's top left, the zero rectangle for the frame;
    // asked in the parent's coordinates.
    void SetDrawRect (const ZRect& rect) { drawRect = rect; }
    virtual ZRect GetDrawRect () const { return Placed (drawRect); }
    void SetHitRect (const ZRect& rect) { hitRect = rect; }
    virtual ZRect GetHitRect () const { return Placed (hitRect); }

    void SetTooltip (std::string text); ///< UTF-8; empty for none
    const std::string& GetTooltip () const { return tooltip; }

    // Handlers
    virtual void DrawActive (ZCanvas& /*canvas*/, std::uint32_t /*time*/) {}
    virtual void DrawInactive (ZCanvas& /*canvas*/, std::uint32_t /*time*/) {}
    virtual bool OnMouseDown (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnMouseMove (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnMouseUp (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& /*wheel*/) { return false; }
    virtual bool OnKeyDown (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnKeyRepeat (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnKeyUp (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnOpenModal (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnCloseModal (bool /*commit*/) { return false; }
    virtual void OnMouseEnter (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) {}
    virtual void OnMouseExit (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) {}
    virtual void OnIdle (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) {}

    /// @return 0 for a miss. Dials and sliders tell several kinds of hit apart
    virtual std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse);

protected:
    /// Whether an update rectangle reaches the pane: one in the window's coordinates that must be painted again.
    bool NeedsPaint (const ZCanvas& canvas, const ZRect& update) const;
    virtual bool OverlapsUpdate (const ZRect& update) const; ///< update: in the parent's coordinates

    /// The input as a handler sees it, in the parent's coordinates.
    template <typename Input>
    Input Local (const Input& input) const
    {
        auto local = input;
        local.point = local.point - GetOrigin ();
        return local;
    }

private:
    bool IsAddressed (std::int32_t paneId) const { return paneId == id || paneId == kEveryPane; }
    ZRect Placed (const ZRect& relative) const { return relative.IsZero () ? frame : relative + frame.TopLeft (); }
    ZMouseInput WithDoubleClick (const ZMouseInput& mouse) const;
    ZMouseInput Pressed (ZEvent& event, const ZMouseInput& mouse); // decides on the double click

    ZPaneOwner* owner;       // not owned: the editor that holds the tree
    ZView* parent = nullptr; // not owned: clears this when either leaves
    ZRect frame;
    std::int32_t id = kNewPaneId;
    bool visible = true;
    bool dirty = true;
    bool active = true;
    ZRect drawRect;
    bool mouseEnabled = true;
    ZRect hitRect;
    bool wheelEnabled = true;
    bool keyEnabled = true;
    std::uint32_t lastClickTime = 0; // milliseconds
    bool doubleClicked = false;      // from the second press of a double click to the next press
    std::optional<ZPoint> lastClickPoint;
    std::string tooltip;
};

} // namespace tessaly
