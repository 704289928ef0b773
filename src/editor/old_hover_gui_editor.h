#pragma once

#include "hover_view.h"
#include "multi_text_view.h"
#include "old_gui_editor.h"

namespace tessaly
{

/// An editor whose pages are hover views: what is added to a page goes to its lower layer, and what is to float above
/// all of that to its upper layer.
class ZOldHoverGuiEditor : public ZOldGuiEditor
{
public:
    using ZOldGuiEditor::ZOldGuiEditor;

    ZView& GetFrontUpperLayer () { return GetUpper (GetFrontView ()); }
    ZView& GetBackUpperLayer () { return GetUpper (GetBackView ()); }

    /// A text for the control of its id on the front page: shown while that is dragged or under the pointer. The texts
    /// are in the upper layer, where one that goes leaves nothing behind.
    template <typename Text>
    Text* AddFrontText (std::unique_ptr<Text> text)
    {
        return AddPane (GetTexts (), std::move (text));
    }

    void ForgetPane (const ZPane& pane) override;
    void Close () override;

protected:
    ZView* CreatePage (const ZRect& rect) override;
    ZView& GetLayer (ZView& page) override { return static_cast<ZHoverView&> (page).GetLowerView (); }

private:
    static ZView& GetUpper (ZView* page) { return static_cast<ZHoverView*> (page)->GetUpperView (); }
    ZMultiTextView& GetTexts ();

    ZMultiTextView* texts = nullptr; // not owned: the editor's panes; made with the first text
};

} // namespace tessaly
