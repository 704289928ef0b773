#pragma once

#include "click_buttons.h"
#include <cstdint>

namespace tessaly
{

class ZChannel_StripStorage;
class ZParameterStorageBase;

/// Shows the name of the set of key points in use; a click asks for the dialog that chooses another. The name is asked
/// of the owner's effect whenever the button is drawn, so who changes it marks the button dirty.
class ZAMX_KPRDTextButton final : public ZBitmapClickButton
{
public:
    ZAMX_KPRDTextButton (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);

    void SetTextRect (const ZRect& rect); ///< relative to the top left of the frame; at first the frame itself
    void SetFontSize (std::int32_t pixels) { fontSize = pixels; }
    void SetTextColor (ZColor color) { textColor = color; }
    void SetStripStorage (
        ZParameterStorageBase* newStorage); ///< borrowed; no name is drawn but for the strip's storage

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override { DrawActive (canvas, time); }

private:
    const char* NameOfSet () const; // null without an effect of the strip

    ZRect textRect; // in the parent's coordinates
    std::int32_t fontSize = 0;
    ZColor textColor{ 255, 255, 255 };
    ZChannel_StripStorage* stripStorage = nullptr; // not owned: the effect's
};

} // namespace tessaly
