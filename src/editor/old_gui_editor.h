#pragma once

#include "gui_editor.h"

namespace tessaly
{

class ZBitmapPicture;

/// An editor of two pages of the panel's size, front and back, each a view of its own over a background picture. It
/// opens on its front page. A page can be added to once its first SetFrontBackground or SetBackBackground
/// has made it.
class ZOldGuiEditor : public ZGuiEditor
{
public:
    using ZGuiEditor::ZGuiEditor;

    /// Makes the page in the image's size, or gives the page that is there another image. Nothing while closed.
    void SetFrontBackground (std::string_view name) { SetBackground (front, name); }
    void SetBackBackground (std::string_view name) { SetBackground (back, name); }
    // Without that page nothing changes
    void ShowFront () { ShowPage (front, back); }
    void ShowBack () { ShowPage (back, front); }
    ZView* GetFrontView () const { return front.view; } ///< null before it is made
    ZView* GetBackView () const { return back.view; }

    // What is added to a page goes in here: AddControl (GetFrontLayer (), ...)
    ZView& GetFrontLayer () { return GetLayer (*front.view); }
    ZView& GetBackLayer () { return GetLayer (*back.view); }

    void SetSize (std::int32_t newWidth, std::int32_t newHeight) override; ///< of pages and pictures, too
    void Draw (ZCanvas& canvas, const ZRect& update, std::uint32_t time) override;
    void ForgetPane (const ZPane& pane) override;
    void Close () override;

protected:
    virtual ZView* CreatePage (const ZRect& rect); ///< the view of a page, which the editor owns
    virtual ZView& GetLayer (ZView& page) { return page; }

private:
    struct Page
    {
        ZView* view = nullptr; // not owned: the editor's panes, as the picture
        ZBitmapPicture* picture = nullptr;
    };

    void SetBackground (Page& page, std::string_view name);
    void SetBackgroundSize (Page& page, std::int32_t pageWidth, std::int32_t pageHeight);
    void ShowPage (Page& shown, Page& hidden);

    Page front;
    Page back;
};

} // namespace tessaly
