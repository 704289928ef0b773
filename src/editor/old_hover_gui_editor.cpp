#include "old_hover_gui_editor.h"

namespace tessaly
{

ZView* ZOldHoverGuiEditor::CreatePage (const ZRect& rect)
{
    return AddView (std::make_unique<ZHoverView> (this, rect));
}

ZMultiTextView& ZOldHoverGuiEditor::GetTexts ()
{
    if (texts == nullptr)
    {
        const auto page = GetFrontView ()->GetFrame ();
        texts = AddPane (GetFrontUpperLayer (), std::make_unique<ZMultiTextView> (this, page - page.TopLeft ()));
    }
    return *texts;
}

void ZOldHoverGuiEditor::ForgetPane (const ZPane& pane)
{
    if (texts == &pane)
        texts = nullptr;
    ZOldGuiEditor::ForgetPane (pane);
}

void ZOldHoverGuiEditor::Close ()
{
    ZOldGuiEditor::Close ();
    texts = nullptr;
}

} // namespace tessaly
