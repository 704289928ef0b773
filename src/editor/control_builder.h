#pragma once

#include "control_description.h"
#include <memory>
#include <span>

namespace tessaly
{

class ZControl;
class ZDial;
class ZDrawAnim;
class ZDrawAsciiFont;
class ZDrawBack;
class ZDrawKnob;
class ZDrawText;
class ZGuiEditor;
class ZPane;
class ZSlider;
class ZTextEdit;
class ZToggleSwitch;

/// Builds described controls on an editor's root view; of use within the editor's CreateControls. Of the looks only the
/// active one is filled: a control that is switched off draws nothing unless code fills the other. To make one kind in
/// another way, derive and override its operation.
class ZControlBuilder
{
public:
    using Made = std::unique_ptr<ZControl>;

    explicit ZControlBuilder (ZGuiEditor& built) ///< borrowed
        : editor (built)
    {
    }
    virtual ~ZControlBuilder () = default;
    ZControlBuilder (const ZControlBuilder&) = delete;
    ZControlBuilder& operator= (const ZControlBuilder&) = delete;

    void BuildControls (std::span<const ZControlDescription> records);

    /// @return null for an unknown kind, and for a radio button that went to a group which the editor has already
    virtual Made CreateControl (const ZControlDescription& record);
    virtual void AddDescribedControl (const ZControlDescription& record, Made control); ///< null: nothing

protected:
    virtual Made CreatePicture (const ZControlDescription& record);
    virtual Made CreateAnimPicture (const ZControlDescription& record);
    virtual Made CreateClickButton (const ZControlDescription& record);
    virtual Made CreateAnimClickButton (const ZControlDescription& record);
    virtual Made CreateOnOffButton (const ZControlDescription& record);
    virtual Made CreateDial (const ZControlDescription& record);
    virtual Made CreateRotarySwitch (const ZControlDescription& record);
    virtual Made CreateKnobSlider (const ZControlDescription& record);
    virtual Made CreateAnimSlider (const ZControlDescription& record);
    virtual Made CreateSlideSwitch (const ZControlDescription& record);
    virtual Made CreateToggleSwitch (const ZControlDescription& record);
    virtual Made CreateRadioButton (const ZControlDescription& record);
    virtual Made CreateFontText (const ZControlDescription& record);
    virtual Made CreateText (const ZControlDescription& record);
    virtual Made CreateAnimMenu (const ZControlDescription& record);
    virtual Made CreateTextMenu (const ZControlDescription& record);

    void ApplyHitRect (const ZControlDescription& record, ZPane& pane) const;
    void ApplyImage (const ZControlDescription& record, ZDrawBack& look) const;
    void ApplyAnim (const ZControlDescription& record, ZDrawAnim& look) const;
    void ApplyKnob (const ZControlDescription& record, ZDrawKnob& look) const;
    void ApplyAsciiFont (const ZControlDescription& record, ZDrawAsciiFont& look) const;
    void ApplyBack (const ZControlDescription& record, ZDrawBack& look) const;
    void ApplyText (const ZControlDescription& record, ZDrawText& look) const;
    void ApplyBackColor (const ZControlDescription& record, ZDrawBack& look) const; ///< after an image: replaces it
    void ApplyDial (const ZControlDescription& record, ZDial& dial) const;
    void ApplySlider (const ZControlDescription& record, ZSlider& slider) const;
    void ApplyToggle (const ZControlDescription& record, ZToggleSwitch& toggle) const;
    void ApplyTextEdit (const ZControlDescription& record, ZTextEdit& edit) const;

    ZGuiEditor& GetEditor () const { return editor; }

private:
    template <typename Control>
    std::unique_ptr<Control> Make (const ZControlDescription& record) const;
    template <typename Control>
    std::unique_ptr<Control> MakeAnimated (const ZControlDescription& record) const; // with hit rectangle and looks
    template <typename Look>
    void ApplyWholeBack (const ZControlDescription& record, Look& look) const; // image, then colour

    ZGuiEditor& editor; // not owned: uses this while it builds
};

} // namespace tessaly
