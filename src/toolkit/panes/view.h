#pragma once

#include "object_collection.h"
#include "pane.h"

namespace tessaly
{

/// A pane with children, drawn from the first to the last, so that the last lies on top. Whoever made a child owns it.
class ZView : public ZPane
{
public:
    ZView (ZPaneOwner* paneOwner, const ZRect& rect);
    ~ZView () override; ///< lets the children go

    virtual bool AddPane (
        ZPane* pane);              ///< borrowed; leaves the view it was in. @return false for null, this and a child
    bool RemovePane (ZPane* pane); ///< @return false for what is no child
    void RemoveAllPanes ();
    bool ContainsPane (const ZPane* pane) const { return children.Contains (pane); }
    std::int32_t GetPaneCount () const { return children.GetCount (); }
    ZPane* GetPane (std::int32_t index) const { return children.Get (index); } ///< null for a bad index
    void FitToPanes (); ///< grows to the right and downwards until every child fits

    void Paint (ZCanvas& canvas, std::uint32_t time, const ZRect& update) override;
    void Draw (ZCanvas& canvas, std::uint32_t time) override;
    ZPane* FindPane (ZEvent& event, const ZMouseInput& mouse) override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override; ///< passed to every child

protected:
    void PaintChild (ZPane& child, ZCanvas& canvas, std::uint32_t time, const ZRect& update);
    void PaintChildren (ZCanvas& canvas, std::uint32_t time, const ZRect& update);
    void DrawChild (ZPane& child, ZCanvas& canvas, std::uint32_t time);
    void DrawChildren (ZCanvas& canvas, std::uint32_t time);

private:
    ZTemplatePaneCollection<ZPane> children; // not owned: whoever made them, mostly the editor
};

} // namespace tessaly
