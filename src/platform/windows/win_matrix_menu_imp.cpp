#include "win_matrix_menu_imp.h"

#include "matrix_menu.h"
#include "wide_text.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace tessaly
{

namespace
{

constexpr UINT kFirstId = 20000;
constexpr std::size_t kLongestText = 255; // characters
constexpr double kFarthest = 65536.0;     // pixels from the window

LONG Pixel (std::int32_t coordinate, double scale)
{
    return static_cast<LONG> (std::clamp (std::round (coordinate * scale), -kFarthest, kFarthest - 1.0));
}

} // namespace

ZWinMatrixMenuImp::ZWinMatrixMenuImp (HWND over, double pixels)
    : window (over)
    , scale (pixels)
    , alive (std::make_shared<bool> (true))
{
}

ZWinMatrixMenuImp::~ZWinMatrixMenuImp ()
{
    *alive = false;
}

void ZWinMatrixMenuImp::ToMenuText (std::string_view text, wchar_t* buffer, std::size_t size) const
{
    std::size_t length = 0;
    for (const wchar_t character : WideText (text))
    {
        const std::size_t copies = character == L'&' ? 2 : 1;
        for (std::size_t i = 0; i < copies && length < size; ++i)
            buffer[length++] = character;
    }
    buffer[length] = 0;
    buffer[size] = 0;
}

void ZWinMatrixMenuImp::InsertInto (HMENU menu, std::int32_t index) const
{
    const auto& item = Item (index);
    std::array<wchar_t, kLongestText + 1> text{};
    MENUITEMINFOW info{};
    info.cbSize = sizeof (info);
    info.fMask = MIIM_STATE | MIIM_ID;
    info.wID = kFirstId + static_cast<UINT> (index);
    info.fState = (item.checked ? MFS_CHECKED : 0U) | (item.enabled ? 0U : MFS_DISABLED | MFS_GRAYED);
    ToMenuText (item.text, text.data (), kLongestText);
    if (text[0] != 0)
    {
        info.fMask |= MIIM_TYPE;
        info.dwTypeData = text.data ();
        info.cch = static_cast<UINT> (std::char_traits<wchar_t>::length (text.data ()) + 1);
    }
    if (index > 0 && GetRows () > 0 && index % GetRows () == 0)
    {
        info.fMask |= MIIM_TYPE;
        info.fType |= MFT_MENUBARBREAK;
    }
    InsertMenuItemW (menu, static_cast<UINT> (index), TRUE, &info);
}

bool ZWinMatrixMenuImp::Open (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    HMENU menu = control != nullptr && !tracking ? CreatePopupMenu () : nullptr;
    if (menu == nullptr)
        return false;
    for (std::int32_t i = 0; i < GetItemCount (); ++i)
        InsertInto (menu, i);
    const ZPoint at = GetOpenPoint (mouse.point);
    POINT place{ Pixel (at.x, scale), Pixel (at.y, scale) };
    ClientToScreen (window, &place);
    const UINT flags = TPM_RETURNCMD | (IsCentered () ? TPM_CENTERALIGN : 0U);
    const auto stillThere = alive;
    tracking = true;
    const auto picked = static_cast<std::int32_t> (TrackPopupMenu (menu, flags, place.x, place.y, 0, window, nullptr));
    if (*stillThere)
    {
        tracking = false;
        if (picked != 0)
            SetSelected (picked - static_cast<std::int32_t> (kFirstId));
        control->CloseModal (picked != 0);
    }
    DestroyMenu (menu);
    return false;
}

bool ZWinMatrixMenuImp::Close (bool /*commit*/)
{
    return false;
}

} // namespace tessaly
