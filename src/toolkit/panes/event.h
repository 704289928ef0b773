#pragma once

#include "event_imp.h"
#include "geometry.h"
#include <cstdint>

namespace tessaly
{

inline constexpr std::int32_t kDefaultCursor = 0;
inline constexpr std::int32_t kHandCursor = 1;

/// The toolkit's handle on the window for the length of one call: mouse, keys, clock and cursor, in coordinates that an
/// origin makes those of the pane that is called. It holds no history. Host's user-interface thread.
class ZEvent
{
public:
    explicit ZEvent (ZEventImp& back)
        : imp (back)
    {
    }

    ZEventImp& GetImp () const { return imp; }

    void SetOrigin (ZPoint point) { origin = point; }
    ZPoint GetOrigin () const { return origin; }
    void PointToLocal (ZPoint& point) const { point = point - origin; }
    void PointToRoot (ZPoint& point) const { point = point + origin; }
    void RectToLocal (ZRect& rect) const { rect = rect - origin; }
    void RectToRoot (ZRect& rect) const { rect = rect + origin; }

    ZPoint GetMousePos () { return imp.GetMousePos () - origin; }
    ZPoint GetRawMousePos () { return imp.GetRawMousePos () - origin; }
    void SetMousePos (ZPoint point) { imp.SetMousePos (point + origin); }
    std::int32_t GetButtons () { return imp.GetButtons (); }
    std::int32_t GetModifiers () { return imp.GetModifiers (); }
    std::uint32_t GetTime () { return imp.GetTime (); }
    void SetOverPane (bool over) { imp.SetOverPane (over); }
    bool IsOverPane () { return imp.IsOverPane (); }

    void SetDoubleClickTime (std::uint32_t milliseconds) { doubleClickTime = milliseconds; } ///< 0: the window's
    std::uint32_t GetDoubleClickTime () { return doubleClickTime != 0 ? doubleClickTime : imp.GetDoubleClickTime (); }

    void SetDefaultCursor () { imp.SetDefaultCursor (); }
    void SetCursor (std::int32_t kind) ///< 0: the default one
    {
        if (kind == kDefaultCursor)
            imp.SetDefaultCursor ();
        else
            imp.SetCursor (kind);
    }
    void ShowCursor () { imp.ShowCursor (); }
    void HideCursor () { imp.HideCursor (); }

private:
    ZEventImp& imp; // not owned: the caller's, for the length of the call
    ZPoint origin;
    std::uint32_t doubleClickTime = 0; // milliseconds; 0: the window's
};

/// Gives an event another origin and brings the first one back when it leaves, so that what a handler sees never
/// reaches its caller.
class ZEventStateSt
{
public:
    ZEventStateSt (ZEvent& guarded, ZPoint meanwhile)
        : event (guarded)
        , origin (guarded.GetOrigin ())
    {
        event.SetOrigin (meanwhile);
    }
    ~ZEventStateSt () { event.SetOrigin (origin); }
    ZEventStateSt (const ZEventStateSt&) = delete;
    ZEventStateSt& operator= (const ZEventStateSt&) = delete;

private:
    ZEvent& event; // not owned: the caller's
    ZPoint origin;
};

} // namespace tessaly
