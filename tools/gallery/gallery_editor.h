#pragma once

#include "gui_editor.h"

namespace tessaly
{
class ZMultiTextView;
} // namespace tessaly

namespace tessaly::gallery
{

/// Every kind of control on one surface: those of the descriptions, and by hand what descriptions don't make.
class GalleryEditor final : public ZGuiEditor
{
public:
    using ZGuiEditor::ZGuiEditor;
    ~GalleryEditor () override { Close (); }

    void ParameterChanged (std::int32_t id, float value) override; ///< the power button switches the section

protected:
    void CreateControls () override;
    void DestroyControls () override;
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override;
    void OnFocusGained () override {}
    void OnFocusLost () override {}

private:
    template <typename Control>
    Control* Find (std::int32_t id) const; ///< the first of this class and id; null without one
    template <typename Control>
    Control* AddAnim (ZView& view, const ZRect& rect, std::int32_t id, const char* strip, const char* offStrip,
                      std::int32_t frames);

    void FinishDescribed ();
    void CreateTexts ();
    void AddVuMeter (ZView& view, const ZRect& rect, std::int32_t index, const char* ground);
    void CreateOffscreen ();
    void CreateHover ();
    void AddHint (ZMultiTextView& texts, std::int32_t id, const char* text);
    void CreateSection ();

    ZView* section = nullptr; // not owned: the editor's panes; null while closed
    ZControl* mark = nullptr; // not owned: likewise; moves over the hover view's ground
};

} // namespace tessaly::gallery
