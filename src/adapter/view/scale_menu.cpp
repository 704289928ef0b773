#include "scale_menu.h"

#include "gui_editor.h"
#include "matrix_menu.h"
#include "panel_scale.h"
#include "pluginterfaces/base/funknownimpl.h"
#include "pluginterfaces/base/ustring.h"
#include <cmath>
#include <string>
#include <utility>

namespace tessaly
{

using namespace Steinberg;

namespace
{

constexpr int kCount = static_cast<int> ((PanelScale::kMost - PanelScale::kLeast) / PanelScale::kStep) + 1;

double ScaleAt (int index)
{
    return PanelScale::kLeast + index * PanelScale::kStep;
}

std::string TextAt (int index)
{
    return std::to_string (std::lround (ScaleAt (index) * 100.0)) + " %";
}

Vst::IContextMenuItem Item (const std::string& text, int32 tag, int32 flags)
{
    Vst::IContextMenuItem item{};
    UString (item.name, 128).fromAscii (text.c_str ());
    item.tag = tag;
    item.flags = flags;
    return item;
}

/// The host calls it when the user has picked one of our entries; it may keep it beyond the menu.
class Target final : public U::Implements<U::Directly<Vst::IContextMenuTarget>>
{
public:
    explicit Target (const std::shared_ptr<const std::function<void (double)>>& choose)
        : chosen (choose)
    {
    }
    tresult PLUGIN_API executeMenuItem (int32 tag) override
    {
        if (tag < 0 || tag >= kCount)
            return kInvalidArgument;
        const auto choose = chosen.lock ();
        if (choose == nullptr)
            return kResultFalse;
        (*choose) (ScaleAt (tag));
        return kResultOk;
    }

private:
    std::weak_ptr<const std::function<void (double)>> chosen;
};

} // namespace

/// Has nothing to show but the menu that opens at it.
class ScaleMenu::Pane final : public ZMatrixMenu
{
public:
    Pane (ZPaneOwner* paneOwner, ZPoint place)
        : ZMatrixMenu (paneOwner, { place.x, place.y, place.x + 1, place.y + 1 }, kEveryPane)
    {
    }
    bool OnCloseModal (bool commit) override
    {
        const bool result = ZMatrixMenu::OnCloseModal (commit);
        picked = commit ? GetSelected () : -1;
        return result;
    }
    bool IsMenuOpen () const { return IsOverlayOpen (); }
    int Picked () const { return picked; }

private:
    int picked = -1;
};

ScaleMenu::ScaleMenu (std::function<void (double)> choose)
    : chosen (std::make_shared<const std::function<void (double)>> (std::move (choose)))
{
}

void ScaleMenu::AddTo (Vst::IContextMenu& menu, const PanelScale& present) const
{
    const auto target = owned (new Target (chosen));
    menu.addItem (Item ("Scale", kCount, Vst::IContextMenuItem::kIsGroupStart), target);
    for (int i = 0; i < kCount; ++i)
        menu.addItem (Item (TextAt (i), i, ScaleAt (i) == present.Get () ? Vst::IContextMenuItem::kIsChecked : 0),
                      target);
    menu.addItem (Item ("", kCount, Vst::IContextMenuItem::kIsGroupEnd), target);
}

void ScaleMenu::OpenOn (ZGuiEditor& editor, ZEvent& event, const ZMouseInput& press, const PanelScale& present)
{
    if (pane != nullptr || editor.GetRootView () == nullptr)
        return;
    pane = editor.AddPane (*editor.GetRootView (), std::make_unique<Pane> (&editor, press.point));
    for (int i = 0; i < kCount; ++i)
    {
        pane->AddItem (TextAt (i));
        pane->SetItemChecked (i, ScaleAt (i) == present.Get ());
    }
    editor.MouseDown (event, press);
    editor.MouseUp (event, press);
}

void ScaleMenu::Tick (ZGuiEditor& editor)
{
    if (pane == nullptr || pane->IsMenuOpen ())
        return;
    const int picked = pane->Picked ();
    editor.Remove (std::exchange (pane, nullptr));
    if (picked >= 0)
        (*chosen) (ScaleAt (picked)); // last: it closes the editor and opens it anew
}

} // namespace tessaly
