#pragma once

#include "event_imp.h"
#include "native_key.h"
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tessaly
{

class ZCanvas;
class ZMatrixMenuImp;
class ZTextEditImp;

/// A mouse message of a window.
struct WindowMouse
{
    ZPoint pixel;               // from the window's top left
    std::int32_t buttons = 0;   // mask of Button: those that are down or, of a press or release, the one it is about
    std::int32_t modifiers = 0; // mask of Modifier
};

/// What a window tells who works in it.
class EditorWindowListener
{
public:
    virtual ~EditorWindowListener () = default;

    virtual void OnTick () = 0; ///< some 33 times a second
    virtual void OnMouseDown (const WindowMouse& mouse) = 0;
    virtual void OnMouseMove (const WindowMouse& mouse) = 0; ///< beyond the window, too, while a button is down
    virtual void OnMouseUp (const WindowMouse& mouse) = 0;
    virtual bool OnWheel (ZPoint pixel, double notches) = 0;  ///< away from the user counts up. @return taken
    virtual bool OnKey (const NativeKey& key, bool down) = 0; ///< a held key comes again. @return taken
    virtual void OnKeyboardLost () = 0;                       ///< the user works elsewhere now
    /// Does what a window's own field wants done on a message of its own. The host may close the window in answer, which
    /// then ends with this call.
    virtual void OnFieldMessage (const std::function<void ()>& work) = 0;
};

/// The pointer and the keys over a window, for one call after another.
class WindowInput : public ZEventImp
{
public:
    virtual void Begin (bool pointerInside) = 0; ///< another call: what was known of the pointer may have changed
    virtual void Reset () = 0;                   ///< shows a hidden pointer, as the arrow
    virtual void SetScale (double pixels) = 0;   ///< a coordinate
};

/// The panel's own window within the host's, from its opening to its end: all that the editor's view asks of a system.
/// The host may destroy it at any time; from then on nothing happens here. Host's user-interface thread.
class EditorWindow
{
public:
    virtual ~EditorWindow () = default; ///< closes it

    virtual WindowInput& Input () = 0;
    virtual bool IsPointerInside () const = 0;
    virtual std::optional<ZPoint> PointerPixel () const = 0; ///< nothing when the system gives no answer
    virtual void ReleasePointer () = 0; ///< a button that is down holds it: a menu of the host's could not have it
    virtual void TakeKeyboard () = 0;   ///< until it is given back
    virtual void GiveKeyboardBack () = 0;
    /// Whether the user has gone to another program's window since the first call after ForgetFocus, for systems that
    /// say so only to who asks.
    virtual bool HasLostFocus () = 0;
    virtual void ForgetFocus () = 0;

    virtual void Resize (ZPoint pixels) = 0;
    /// A new surface to draw on, which keeps its pixels: transparent, of these coordinates and so many pixels each.
    virtual void MakeSurface (std::int32_t width, std::int32_t height, double scale) = 0;
    virtual ZCanvas& Canvas () = 0;  ///< of the present surface; a tiny one before the first
    virtual void ShowChanges () = 0; ///< what was drawn since the last call comes to the screen
    virtual void ShowAll () = 0;

    // Back ends for the editor: they fit the present surface and end before the next one
    virtual std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () = 0;
    virtual std::unique_ptr<ZTextEditImp> CreateTextEditImp () = 0;
};

} // namespace tessaly
