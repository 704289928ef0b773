#pragma once

#include "gui_editor.h"

namespace tessaly
{

class ZBitmapPicture;

/// An editor of two pages of the panel's size, front and back, each a view of its own over a background picture. It
/// opens on its front page. Only what a page's first SetFrontBackground or SetBackBackground has made can be added to.
class ZOldGuiEditor : public ZGuiEditor
{
public:
    using ZGuiEditor::ZGuiEditor;

    /// Makes the page in the image's size, or gives the page that is there another image.
    void SetFrontBackground (std::string_view name) { SetBackground (front, name); }
    void SetBackBackground (std::string_view name) { SetBackground (back, name); }
    void ShowFront () { ShowPage (front, back); }
    void ShowBack () { ShowPage (back, front); }
    ZView* GetFrontView () const { return front.view; } ///< null before it is made
    ZView* GetBackView () const { return back.view; }

    // To the page's layer that lies below, see ZGuiEditor
    template <typename Control>
    Control* AddFrontControl (std::unique_ptr<Control> control)
    {
        return AddControl (GetLayer (*front.view), std::move (control));
    }
    template <typename Pane>
    Pane* AddFrontPane (std::unique_ptr<Pane> pane)
    {
        return AddPane (GetLayer (*front.view), std::move (pane));
    }
    template <typename Meter>
    Meter* AddFrontMeter (std::unique_ptr<Meter> meter)
    {
        return AddMeter (GetLayer (*front.view), std::move (meter));
    }
    template <typename Control>
    Control* AddBackControl (std::unique_ptr<Control> control)
    {
        return AddControl (GetLayer (*back.view), std::move (control));
    }
    template <typename Pane>
    Pane* AddBackPane (std::unique_ptr<Pane> pane)
    {
        return AddPane (GetLayer (*back.view), std::move (pane));
    }
    template <typename Meter>
    Meter* AddBackMeter (std::unique_ptr<Meter> meter)
    {
        return AddMeter (GetLayer (*back.view), std::move (meter));
    }

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
