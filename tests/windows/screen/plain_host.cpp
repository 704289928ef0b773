#include "bundle.h"
#include "named_host.h"
#include "own_module.h"
#include "plugin_instance.h"
#include "pluginterfaces/base/funknownimpl.h"
#include "pluginterfaces/gui/iplugview.h"
#include "win_tooltip_imp.h"
#include <iostream>
#include <optional>

// A host that tells its plug-ins no scale and has no menus of its own, so that the panel shows its own; below the panel
// the system's tooltip, which the panel has no use for. Ends with its window.
//
//     plain_host BUNDLE

using namespace tessaly;
using namespace Steinberg;

namespace
{

constexpr ZRect kTooltipArea{ 0, 640, 1150, 700 };

/// Its window has room for the panel at twice its size.
class Frame final : public U::Implements<U::Directly<IPlugFrame>>
{
public:
    tresult PLUGIN_API resizeView (IPlugView* view, ViewRect* size) override { return view->onSize (size); }
};

bool isOpen = true;

LRESULT CALLBACK Procedure (HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CLOSE)
        isOpen = false; // the panel goes before the window
    return message == WM_CLOSE ? 0 : DefWindowProcW (window, message, wParam, lParam);
}

void Run (const char* path)
{
    host::NamedHost context ("plain host");
    host::Bundle bundle (path);
    host::PluginInstance instance (bundle, context, {});
    HWND window = CreateWindowExW (0, L"STATIC", L"Plain host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1160, 740,
                                   nullptr, nullptr, OwnModule (), nullptr);
    SetWindowLongPtrW (window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR> (&Procedure));
    const auto frame = owned (new Frame);
    const auto view = owned (instance.Controller ().createView (Vst::ViewType::kEditor));
    view->setFrame (frame);
    view->attached (window, kPlatformTypeHWND);
    std::optional<ZWinTooltipImp> tooltip (window);
    tooltip->Show (kTooltipArea, "A tooltip, 1 \xC2\xB5s");
    for (MSG message{}; isOpen && GetMessageW (&message, nullptr, 0, 0) > 0;)
    {
        TranslateMessage (&message);
        DispatchMessageW (&message);
    }
    tooltip.reset ();
    view->setFrame (nullptr);
    view->removed ();
    DestroyWindow (window);
}

} // namespace

int main (int argc, char** argv)
{
    try
    {
        if (argc == 2)
            Run (argv[1]);
        return argc == 2 ? 0 : 2;
    }
    catch (const std::exception& error)
    {
        std::cerr << error.what () << '\n';
        return 1;
    }
}
