#pragma once

#include "overlay_control.h"
#include "text_edit_imp.h"
#include "value_drag.h"
#include <memory>
#include <string>
#include <string_view>

namespace tessaly
{

class ZTextAnalyzer;

/// Bits of what a text edit answers to. With none of them it is a plain display.
enum TextEditFlag : std::int32_t
{
    kEditOnDoubleClick = 1,
    kDragUpAndDown = 2
};

/// A value shown as a text, which can be dragged up and down and, on a double click, typed. What is typed is read by a
/// text analyzer; a text that it refuses is dropped.
class ZTextEdit : public ZOverlayControl
{
public:
    ZTextEdit (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);
    ~ZTextEdit () override;

    void SetFlags (std::int32_t newFlags) { flags = newFlags; } ///< bits of TextEditFlag
    std::int32_t GetFlags () const { return flags; }
    void SetDragScale (float stepsPerPixel) { dragScale = stepsPerPixel; }
    float GetDragScale () const { return dragScale; }
    virtual float DragValue (const ZMouseInput& mouse); ///< @return the value that a drag to there asks for

    // The text at rest. It follows the value before each drawing; where the value has no text it stays
    void SetText (std::string_view newText); ///< UTF-8, at most 255 bytes are kept
    const std::string& GetText () const { return text; }
    const std::string& GetDisplayText () const { return text; }
    virtual void UpdateText ();
    void SetTextRect (const ZRect& rect) { textRect = rect; } ///< from the frame's top left; zero: the draw rectangle
    ZRect GetTextRect () const { return textRect; }
    ZRect GetTextPlace () const; ///< the same in the parent's coordinates

    // The text in the field, and the way back
    void SetValueToText (ZToText function) { valueToText = function; } ///< null: as the text at rest
    std::string GetEditText (float normalized) const { return GetEditPlainText (ToPlain (normalized)); }
    std::string GetEditPlainText (float plain) const;
    void SetTextAnalyzer (std::unique_ptr<ZTextAnalyzer> newAnalyzer); ///< null: plain numbers with a unit's prefix
    virtual bool IsTextValid (std::string& typed);                     ///< the analyzer may take blanks out of the text
    virtual float TextToValue (const std::string& valid); ///< from what IsTextValid left. @return a plain value

    bool IsMouseEnabled () const override;
    void Draw (ZCanvas& canvas, std::uint32_t time) override;
    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnOpenModal (ZEvent& event, const ZMouseInput& mouse) override; ///< here the field opens
    bool OnCloseModal (bool commit) override;

protected:
    ZOverlayImp* GetOverlay () const override { return imp.get (); }

private:
    bool Answers (TextEditFlag flag) const { return (flags & flag) != 0; }
    void TakeTyped ();

    std::unique_ptr<ZTextEditImp> imp;       // null: no fields here
    std::unique_ptr<ZTextAnalyzer> analyzer; // never null
    ZToText valueToText = nullptr;
    std::int32_t flags = kEditOnDoubleClick | kDragUpAndDown;
    std::string text;
    ZValueDrag drag;
    bool dragging = false; // from a press at rest to its release
    ZPoint lastPoint;      // of the drag
    float dragScale = 1.0f;
    ZRect textRect;
};

} // namespace tessaly
