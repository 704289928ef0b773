#include "old_gui_editor.h"

#include "offscreen_view.h"
#include "pictures.h"

namespace tessaly
{

void ZOldGuiEditor::SetBackground (Page& page, std::string_view name)
{
    if (GetRootView () == nullptr)
        return;
    auto* image = GetBitmap (name);
    if (page.view == nullptr)
    {
        const ZRect size{ 0, 0, static_cast<std::int32_t> (image->GetWidth ()),
                          static_cast<std::int32_t> (image->GetHeight ()) };
        page.view = CreatePage (size);
        GetRootView ()->AddPane (page.view);
        page.picture = AddPane (GetLayer (*page.view), std::make_unique<ZBitmapPicture> (this, size, kNewPaneId));
        if (front.view != nullptr && back.view != nullptr) // in whichever order they come
            back.view->Hide ();
    }
    page.picture->SetBitmapActive (image, {});
    page.picture->SetBitmapInactive (image, {});
    page.view->SetDirty (true);
}

ZView* ZOldGuiEditor::CreatePage (const ZRect& rect)
{
    return AddView (std::make_unique<ZOffscreenView> (this, rect));
}

void ZOldGuiEditor::ShowPage (Page& shown, Page& hidden)
{
    if (shown.view == nullptr)
        return;
    shown.view->Show ();
    if (hidden.view != nullptr)
        hidden.view->Hide ();
}

void ZOldGuiEditor::SetBackgroundSize (Page& page, std::int32_t pageWidth, std::int32_t pageHeight)
{
    if (page.view == nullptr)
        return;
    const auto corner = page.view->GetPosition ();
    page.view->SetFrame ({ corner.x, corner.y, corner.x + pageWidth, corner.y + pageHeight });
    page.picture->SetFrame ({ 0, 0, pageWidth, pageHeight });
}

void ZOldGuiEditor::SetSize (std::int32_t newWidth, std::int32_t newHeight)
{
    SetBackgroundSize (front, newWidth, newHeight);
    SetBackgroundSize (back, newWidth, newHeight);
    ZGuiEditor::SetSize (newWidth, newHeight);
}

void ZOldGuiEditor::Draw (ZCanvas& canvas, const ZRect& update, std::uint32_t time)
{
    for (auto* page : { &front, &back })
        if (page->picture != nullptr && page->picture->IsVisible () && page->picture->IsDirty ())
            page->view->SetDirty (true); // the picture lies under all: what stands on it has to be drawn again
    ZGuiEditor::Draw (canvas, update, time);
}

void ZOldGuiEditor::ForgetPane (const ZPane& pane)
{
    for (auto* page : { &front, &back })
        if (page->view == &pane || page->picture == &pane)
            *page = {};
    ZGuiEditor::ForgetPane (pane);
}

void ZOldGuiEditor::Close ()
{
    ZGuiEditor::Close ();
    front = {};
    back = {};
}

} // namespace tessaly
