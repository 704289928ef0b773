#pragma once

#include "bitmap_imp.h"
#include "matrix_menu_imp.h"
#include "text_edit_imp.h"
#include "tooltip_imp.h"
#include <cstdint>
#include <memory>
#include <string_view>

namespace tessaly
{

/// All that an editor asks of the plug-in and the window around it. Whoever implements it knows the window, so the back
/// ends that it makes need no platform handle to pass through here. Host's user-interface thread.
class ZEditorWrapper
{
public:
    virtual ~ZEditorWrapper () = default;

    // Of the effect, as ZEffect's operations of these names; false without an effect
    virtual bool QueryEffect (std::int32_t kind, void* out) = 0;
    virtual bool GetInfo (std::int32_t kind, void* out) = 0;

    virtual void SetParameter (std::int32_t id, float value) = 0; ///< a parameter's id; normalized, 0 to 1
    virtual void EndEdit (std::int32_t id) = 0; ///< the host is to take the storage's value; -1: of all that differ
    virtual void ShowCursor () = 0; ///< takes back one ZEventImp::HideCursor, after a drag that ended without a release
    virtual void ResizeTo (std::int32_t width, std::int32_t height) = 0; ///< pixels at scale 1

    virtual std::unique_ptr<ZBitmapImp> CreateBitmap (std::string_view name) = 0; ///< null: there is no such image

    // Back ends that belong to the present window, asked for between Open and Close. Null: there are none here
    virtual std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () = 0;
    virtual std::unique_ptr<ZTextEditImp> CreateTextEditImp () = 0;
    virtual std::unique_ptr<ZTooltipImp> CreateTooltipImp () = 0;
};

} // namespace tessaly
