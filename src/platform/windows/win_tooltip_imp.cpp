#include "win_tooltip_imp.h"

#include "pixel_grid.h"
#include "wide_text.h"
#include <commctrl.h>
#include <string>

namespace tessaly
{

namespace
{

/// With the size that every version of the common controls takes.
TTTOOLINFOW ToolOf (HWND window)
{
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = window;
    return tool;
}

LRESULT Send (HWND tooltip, UINT message, const TTTOOLINFOW& tool)
{
    return SendMessageW (tooltip, message, 0, reinterpret_cast<LPARAM> (&tool));
}

} // namespace

ZWinTooltipImp::ZWinTooltipImp (HWND over, double pixels)
    : window (over)
    , scale (pixels)
{
    const INITCOMMONCONTROLSEX tooltips{ sizeof (tooltips), ICC_TAB_CLASSES };
    InitCommonControlsEx (&tooltips);
    tooltip = CreateWindowExW (0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT,
                               CW_USEDEFAULT, CW_USEDEFAULT, window, nullptr, nullptr, nullptr);
    if (tooltip == nullptr)
        return;
    std::wstring text = L"This is a tooltip"; // until the first one comes
    auto tool = ToolOf (window);
    tool.lpszText = text.data ();
    if (Send (tooltip, TTM_ADDTOOLW, tool) == FALSE)
    {
        DestroyWindow (tooltip);
        tooltip = nullptr;
    }
}

ZWinTooltipImp::~ZWinTooltipImp ()
{
    Hide ();
    if (tooltip != nullptr)
        DestroyWindow (tooltip);
}

void ZWinTooltipImp::Show (const ZRect& area, std::string_view text)
{
    if (tooltip == nullptr)
        return;
    auto wide = WideText (text);
    const ZRect pixels = PixelGrid (scale).Pixels (area);
    auto tool = ToolOf (window);
    tool.rect = { pixels.left, pixels.top, pixels.right, pixels.bottom };
    tool.lpszText = wide.data ();
    Send (tooltip, TTM_NEWTOOLRECTW, tool);
    Send (tooltip, TTM_UPDATETIPTEXTW, tool);
}

void ZWinTooltipImp::Hide ()
{
    if (tooltip != nullptr)
        SendMessageW (tooltip, TTM_POP, 0, 0);
}

} // namespace tessaly
