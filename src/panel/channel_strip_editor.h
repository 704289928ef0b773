#pragma once

#include "eq_band.h"
#include "old_hover_gui_editor.h"
#include "panel_layout.h"
#include "panel_state.h"
#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

namespace tessaly
{

class AMX_AboutPicture;
class AMX_ClickButton;
class Channel_Strip;
class KPRD_Manager;
class ZAMX_AnimOnOffButton;
class ZAMX_CompGraph;
class ZAMX_DriveDial;
class ZAMX_EqGraph;
class ZAMX_FileDialog;
class ZAMX_FontTextEdit;
class ZAMX_GuideLowerDial;
class ZAMX_GuideUpperDial;
class ZAMX_KneeSwitch;
class ZAMX_KPRDTextButton;
class ZAMX_MorphDial;
class ZAnimPicture;
class ZAnimVuMeter;
class ZBitmapPicture;
class ZChannel_StripEffect;

/// The strip's panel: 560 by 315 pixels at scale 1, one page. It builds the controls of panel_layout.h in a fixed order
/// and does three jobs beyond that. It shows what a gesture touches: dial, value, band label and graph marker light
/// together. It keeps the look of the two sections in step with their bypasses. And it watches whether the panel still
/// equals what the position of the morph says.
///
/// Modes (file dialog open, about picture open, morph held) are no stored state: each is the visibility of a pane.
///
/// Threads: the host's user-interface thread; the effect's events may come on any (see ZGuiEditor).
class ZChannel_StripEditor final : public ZOldHoverGuiEditor, public PanelState
{
public:
    explicit ZChannel_StripEditor (ZEditorWrapper& surroundings); ///< borrowed: lives longer than the editor
    ~ZChannel_StripEditor () override;

    bool AllGuidesIdle () const override; ///< no ring is open, growing or shrinking
    void ClearBusy ();                    ///< a press and a key no longer block one another

    // The window's side: each asks the other kind of input first, and ends the edit of a pane that loses the touch
    bool MouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool MouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool MouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool MouseWheel (ZEvent& event, const ZWheelInput& wheel) override;
    bool KeyDown (ZEvent& event, const ZKeyInput& key) override;
    bool KeyRepeat (ZEvent& event, const ZKeyInput& key) override;
    bool KeyUp (ZEvent& event, const ZKeyInput& key) override;

    // The controls' side
    void OnValue (std::int32_t id, float value) override;
    void OnMessage (std::int32_t message, ZControl* sender) override; ///< of PanelMessage
    void ParameterChanged (std::int32_t id, float value) override;

    // What is lit
    void SetHighlight (const ZControl& control, bool on); ///< all that a control stands for
    void HighlightTag (std::int32_t id, bool on);         ///< "Morph" lights everything that it moves
    void TextEditState (const ZControl& text, std::int32_t message);

    // What is enabled
    void UpdateCompSection ();
    void UpdateEqSection ();
    void UpdateTotalGain ();
    void SetControlsEnabled (bool enable); ///< of all but the name button, for the time of a dialog

    void OpenFileDialog ();
    void CloseFileDialog (); ///< loads the set that was chosen in it, if any
    void ShowAbout (bool on);

    /// Compares the parameters 1 to 17 with the steps that the morph writes at its present position.
    void CheckModified ();
    void SetModified (bool on);

    /// Ends what the pane that had the touch is doing. Nothing for null or panes of one id.
    void FocusMoved (const ZPane* newPane, ZPane* oldPane);

protected:
    void CreateControls () override;
    void DestroyControls () override;
    void OnFocusGained () override { ClearBusy (); }
    void OnFocusLost () override;
    void OnCore (ZPluginCore* core) override;
    void OnStorage (ZParameterStorageBase* newStorage) override;
    void OnSampleRate (double rateHz) override;
    bool TakesOwnEvent (std::int32_t code) const override;
    void OnOwnEvent (std::int32_t code) override;
    void ShowChangedParameters () override; ///< "Morph" first, changed or not

private:
    /// The controls of one section by their kind; none owned here.
    struct Section
    {
        ZTemplatePaneCollection<ZAMX_GuideLowerDial> dials;
        ZTemplatePaneCollection<ZAMX_GuideUpperDial> guides;
        ZTemplatePaneCollection<ZAMX_FontTextEdit> texts;
        ZTemplatePaneCollection<ZAMX_FontTextEdit> guideTexts;
    };

    // Building, in the order of the panel's layers
    void CreateCompBack ();
    void CreateKneeSwitch ();
    void CreateCompDials ();
    void CreateDriveDial ();
    void CreateCompTexts ();
    void CreateCompMeter ();
    void CreateEqBack ();
    void CreateEqDials ();
    void CreateEqTexts ();
    void CreateBandLeds ();
    void CreateEqMeters ();
    void CreateBypassButtons ();
    void CreateMorphDial ();
    void CreateCompGraph ();
    void CreateEqGraph ();
    void CreateNameButton ();
    void CreateFileDialog ();
    void CreateAbout ();
    void CreateOnOverlay ();
    void ArrangeMeters (); // a strip of one channel has one output meter

    ZBitmapPicture* MakePicture (ZView& layer, const layout::PicturePlace& place);
    void MakeLowerDial (Section& section, const layout::SmallDialPlace& place);
    void MakeGuide (Section& section, const layout::SmallDialPlace& place);
    void MakeValueTexts (Section& section, const layout::ValueTextPlace& place);
    ZAMX_FontTextEdit* MakeValueText (const layout::ValueTextPlace& place, bool inLowerLayer);
    ZAMX_AnimOnOffButton* MakeBypassButton (const layout::BypassPlace& place);
    ZAnimVuMeter* MakeMeter (const layout::MeterPlace& place);
    AMX_ClickButton* MakeClickArea (ZView& layer, std::int32_t id, const ZRect& frame);

    // Highlighting
    void HighlightComp (std::int32_t id, bool on);
    void HighlightEq (std::int32_t id, bool on);
    std::int32_t LightBand (std::int32_t id, bool on); // @return the band of the parameter, or kNoBand
    void LightGraphBand (std::int32_t band, bool on);  // all that belongs to a band of the graph
    void RememberGraphBand ();

    // Enabling. `input` is the mouse, the wheel and the keys; `look` is the active drawing
    static void EnableDial (Section& section, std::int32_t id, bool input, bool look);
    void CloseGuides (Section& section, bool (*belongs) (std::int32_t id)); // at once, and unlights what they lit
    bool IsOn (StripParameter parameter) const;                             // a switch of the storage
    bool IsCompOn () const { return !IsOn (StripParameter::compressorBypass); }
    bool IsEqOn () const { return !IsOn (StripParameter::equalizerBypass); }
    bool IsDialogOpen () const;

    ZAMX_GuideUpperDial* FindGuide (std::int32_t id) const;
    ZChannel_StripEffect* Effect (); // null without one
    void SetStrip (Channel_Strip* strip);
    void SetKeyPointManager (KPRD_Manager* manager);
    void LoadChosenSet ();

    // Not owned: the editor's panes, from CreateControls to DestroyControls
    struct Controls
    {
        Section comp;
        Section eq;
        ZBitmapPicture* compBack = nullptr;
        ZBitmapPicture* eqBack = nullptr;
        ZBitmapPicture* totalGainBack = nullptr;
        ZBitmapPicture* meterCover = nullptr;
        ZBitmapPicture* morphOverlay = nullptr;
        ZAMX_KneeSwitch* kneeSwitch = nullptr;
        ZAMX_DriveDial* driveDial = nullptr;
        ZAMX_FontTextEdit* driveText = nullptr;
        ZAMX_MorphDial* morphDial = nullptr;
        ZAnimVuMeter* compMeter = nullptr;
        std::array<ZAnimVuMeter*, layout::kEqMeters.size ()> eqMeters{};
        std::array<ZAnimPicture*, layout::kBandLeds.size ()> bandLeds{};
        ZAMX_AnimOnOffButton* compBypass = nullptr;
        ZAMX_AnimOnOffButton* eqBypass = nullptr;
        ZAMX_CompGraph* compGraph = nullptr;
        ZAMX_EqGraph* eqGraph = nullptr;
        ZAMX_KPRDTextButton* nameButton = nullptr;
        ZAMX_FileDialog* fileDialog = nullptr;
        AMX_ClickButton* aboutOpen = nullptr;
        AMX_ClickButton* aboutClose = nullptr;
        AMX_AboutPicture* aboutPicture = nullptr;
    };
    std::unique_ptr<Controls> panel;         // null while closed
    KPRD_Manager* keyPointManager = nullptr; // not owned: the storage's
    std::int32_t graphBand = kNoBand;        // the graph's current band before the present press or turn of the wheel
    bool mouseBusy = false;                  // a pane has taken a press
    bool keysBusy = false;                   // a pane has taken a key
    std::uint32_t lastKeyTime = 0;           // milliseconds; of keysBusy
};

} // namespace tessaly
