#include "open_editor_window.h"

#include "panel_window.h"
#include "pluginterfaces/base/funknownimpl.h"

namespace tessaly
{

using namespace Steinberg;

namespace
{

/// Hosts offer their run loop with the frame or with the context; some in one of them only.
IPtr<Linux::IRunLoop> FindRunLoop (std::span<FUnknown* const> hostObjects)
{
    for (FUnknown* source : hostObjects)
        if (FUnknownPtr<Linux::IRunLoop> loop (source); loop)
            return loop;
    return nullptr;
}

} // namespace

FIDString EditorPlatformType ()
{
    return kPlatformTypeX11EmbedWindowID;
}

std::unique_ptr<EditorWindow> OpenEditorWindow (const EditorWindowPlace& place, EditorWindowListener& listener)
{
    return PanelWindow::Open (place.parent, place.size, place.scale, FindRunLoop (place.hostObjects), listener);
}

} // namespace tessaly
