#include "text_edit.h"

#include "pane_owner.h"
#include "text_analyzer.h"
#include "text_buffer.h"
#include <cmath>
#include <utility>

namespace tessaly
{

ZTextEdit::ZTextEdit (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId)
    : ZOverlayControl (paneOwner, rect, controlId)
    , imp (paneOwner != nullptr ? paneOwner->CreateTextEditImp () : nullptr)
    , analyzer (std::make_unique<ZTextAnalyzerReal> ())
{
    if (imp != nullptr)
        imp->SetControl (this);
}

ZTextEdit::~ZTextEdit () = default;

void ZTextEdit::SetText (std::string_view newText)
{
    text = CutAtCharacter (newText, kTextSize - 1);
}

void ZTextEdit::UpdateText ()
{
    if (const auto said = GetValueText (GetValue ()); !said.empty ())
        SetText (said);
}

ZRect ZTextEdit::GetTextPlace () const
{
    return textRect.IsZero () ? GetDrawRect () : textRect + GetPosition ();
}

std::string ZTextEdit::GetEditPlainText (float plain) const
{
    if (valueToText == nullptr)
        return GetPlainValueText (plain);
    ZText buffer{};
    valueToText (plain, buffer.data ());
    return buffer.data ();
}

void ZTextEdit::SetTextAnalyzer (std::unique_ptr<ZTextAnalyzer> newAnalyzer)
{
    analyzer = newAnalyzer != nullptr ? std::move (newAnalyzer) : std::make_unique<ZTextAnalyzerReal> ();
}

bool ZTextEdit::IsTextValid (std::string& typed)
{
    ZText buffer{};
    PutText (buffer.data (), typed);
    const auto valid = analyzer->IsValid (buffer.data ());
    typed = buffer.data ();
    return valid;
}

float ZTextEdit::TextToValue (const std::string& valid)
{
    return analyzer->ToValue (valid.c_str ());
}

bool ZTextEdit::IsMouseEnabled () const
{
    return flags != 0 && ZOverlayControl::IsMouseEnabled ();
}

void ZTextEdit::Draw (ZCanvas& canvas, std::uint32_t time)
{
    if (!IsOverlayOpen () && IsDirty ())
        UpdateText ();
    ZOverlayControl::Draw (canvas, time);
}

bool ZTextEdit::OnMouseDown (ZEvent& event, const ZMouseInput& mouse)
{
    if (IsOverlayOpen ())
        return ZOverlayControl::OnMouseDown (event, mouse);
    if (!Answers (kDragUpAndDown) || (Answers (kEditOnDoubleClick) && mouse.IsDoubleClick ()))
        return false;
    drag.Begin (GetValue (), IsFineModifier (mouse.modifiers));
    dragging = true;
    lastPoint = mouse.point;
    return OnMouseMove (event, mouse);
}

bool ZTextEdit::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if (IsOverlayOpen ())
        return ZOverlayControl::OnMouseMove (event, mouse);
    if (!mouse.LeftDown ())
        return OnMouseUp (event, mouse);
    if (!dragging) // the press was the field's, which a key has closed since
        return false;
    drag.SetFine (IsFineModifier (mouse.modifiers), GetValue ());
    BroadcastChange (DragValue (mouse));
    lastPoint = mouse.point;
    return true;
}

bool ZTextEdit::OnMouseUp (ZEvent& event, const ZMouseInput& mouse)
{
    dragging = false;
    return ZOverlayControl::OnMouseUp (event, mouse);
}

float ZTextEdit::DragValue (const ZMouseInput& mouse)
{
    const auto pixels = lastPoint.y - mouse.point.y;
    return pixels == 0 ? GetValue () : drag.Move (*this, pixels, dragScale);
}

bool ZTextEdit::OnOpenModal (ZEvent& event, const ZMouseInput& mouse)
{
    const bool wanted = Answers (kEditOnDoubleClick) && mouse.IsDoubleClick ();
    if (!wanted || imp == nullptr || IsOverlayOpen ())
        return false;
    dragging = false;
    imp->SetText (GetEditText (GetValue ()));
    const auto opened = imp->Open (event, mouse);
    SetDirty (true);
    return opened;
}

bool ZTextEdit::OnCloseModal (bool commit)
{
    if (imp == nullptr || !(Answers (kEditOnDoubleClick) || IsOverlayOpen ()))
        return false;
    const auto result = imp->Close (commit);
    if (commit)
        TakeTyped ();
    SetDirty (true);
    RepaintSurface ();
    return result;
}

void ZTextEdit::TakeTyped ()
{
    auto typed = imp->GetText ();
    if (!IsTextValid (typed))
        return;
    const auto plain = TextToValue (typed);
    if (std::isfinite (plain)) // "nan" and the like read as numbers, too
        BroadcastValue (GetId (), FromPlain (plain));
}

} // namespace tessaly
