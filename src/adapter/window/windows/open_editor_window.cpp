#include "open_editor_window.h"

#include "pluginterfaces/gui/iplugview.h"
#include "win_panel_window.h"

namespace tessaly
{

Steinberg::FIDString EditorPlatformType ()
{
    return Steinberg::kPlatformTypeHWND;
}

std::unique_ptr<EditorWindow> OpenEditorWindow (const EditorWindowPlace& place, EditorWindowListener& listener)
{
    return WinPanelWindow::Open (static_cast<HWND> (place.parent), place.size, place.scale, listener);
}

} // namespace tessaly
