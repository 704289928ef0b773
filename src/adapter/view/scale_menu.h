#pragma once

#include "geometry.h"
#include "input.h"
#include "pluginterfaces/base/smartpointer.h"
#include "pluginterfaces/vst/ivstcontextmenu.h"
#include <functional>
#include <memory>

namespace tessaly
{

class ZEvent;
class ZGuiEditor;
class ZPane;
class PanelScale;

/// The choice of the panel's scale: entries in the host's context menu, or a menu on the panel.
/// Host's user-interface thread.
class ScaleMenu
{
public:
    /// @param choose  called with the scale that the user picked, for as long as this lives
    explicit ScaleMenu (std::function<void (double)> choose);

    void AddTo (Steinberg::Vst::IContextMenu& menu, const PanelScale& present) const;

    void OpenOn (ZGuiEditor& editor, ZEvent& event, const ZMouseInput& press, const PanelScale& present);
    void Forget () { pane = nullptr; } ///< the editor closes
    void Tick (ZGuiEditor& editor);    ///< takes a menu away that has closed, and carries out its choice

private:
    class Pane;

    std::shared_ptr<const std::function<void (double)>> chosen; // entries of the host's menu may outlive it
    Pane* pane = nullptr; // not owned: the editor's panes; null while no menu is open on the panel
};

} // namespace tessaly
