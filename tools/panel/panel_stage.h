#pragma once

#include "canvas.h"
#include "channel_strip_editor.h"
#include "channel_strip_effect.h"
#include "clipboard.h"
#include "editor_wrapper.h"
#include "effect_wrapper.h"
#include "kprd_collection.h"
#include "offscreen_window.h"
#include "script.h"
#include "vu_buffer.h"
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessaly::stage
{

/// The strip's panel with its real effect, engine and images, in a window without a screen: what a host would show of
/// one instance. No host: values go straight to the effect, and what the editor told of edits is kept in lists.
class PanelStage : public ScriptStage, private ZEditorWrapper, private ZEffectWrapper
{
public:
    /// @param scale       pixels a coordinate, 1 to 3
    /// @param collection  where the file dialog's sets come from; empty: there are none
    explicit PanelStage (double scale, KPRD_MakeBackEnd collection = {});
    ~PanelStage () override;

    ZChannel_StripEffect& Effect () { return effect; }
    ZChannel_StripEditor& Editor () { return editor; }
    ZParameterStorageBase& Storage () { return *storage; }

    float Value (std::int32_t id) { return effect.GetParameter (id); } ///< normalized
    std::int32_t Step (std::int32_t id);                               ///< plain
    std::string TextOf (std::int32_t id);                              ///< as on the panel

    /// As a host's automation: the editor finds it on its next tick.
    void SetValue (std::int32_t id, float normalized) { effect.SetParameter (id, normalized); }
    void SetStep (std::int32_t id, std::int32_t step);

    /// Normalized values by parameter, as the editor asked to have them written, since the last call.
    std::vector<std::pair<std::int32_t, float>> TakeWritten () { return std::exchange (written, {}); }
    /// Parameters whose edit the editor declared ended, -1 for all that differ, since the last call.
    std::vector<std::int32_t> TakeEnded () { return std::exchange (ended, {}); }

    // Of scripts. Places are "at", the panel's top left corner, the names of parameters in small letters with '-' for a
    // blank, those of read-outs with "text-" before it, and the names in panel_stage.cpp
    OffscreenWindow& Window () override { return window; }
    std::optional<ZRect> PlaceOf (std::string_view name) const override;
    void SetLevel (std::int32_t meter, float level) override { meters.SetDirect (meter, level); }
    void SetParameter (std::string_view name, double step) override;

    std::optional<std::int32_t> FindParameter (std::string_view name) const; ///< as in PlaceOf
    static std::string PlaceName (std::string_view title);                   ///< "Side Chain F": "side-chain-f"

private:
    struct Clipboard final : ZClipboard
    {
        std::string GetText () override { return kept; }
        void SetText (std::string_view text) override { kept = text; }
        std::string kept;
    };

    // Of the editor
    bool QueryEffect (std::int32_t kind, void* out) override { return effect.QueryEffect (kind, out); }
    bool GetInfo (std::int32_t kind, void* out) override;
    void SetParameter (std::int32_t id, float value) override;
    void EndEdit (std::int32_t id) override { ended.push_back (id); }
    void ResizeTo (std::int32_t /*width*/, std::int32_t /*height*/) override {} // the surface is of a fixed size
    std::unique_ptr<ZBitmapImp> CreateBitmap (std::string_view name) override;
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return nullptr; } // the panel has no menu
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override;
    std::unique_ptr<ZTooltipImp> CreateTooltipImp () override { return nullptr; } // and no tooltip
    void ShowCursor () override { window.ShowPointer (); }

    // Of the effect
    bool NotifyEditor (std::int32_t code, void* data) override { return editor.OnEffectEvent (code, data); }
    bool NotifyEditor2 (std::int32_t code, void* data) override { return editor.OnEffectEvent2 (code, data); }
    void GetTimeInfo (ZTimeInfo* /*info*/) override {}
    std::int32_t GetHostName (char* buffer) override;

    OffscreenWindow window;
    ZOnscreenCanvas measuring;
    Clipboard clipboard;
    ZVuBuffer meters;
    std::vector<std::pair<std::int32_t, float>> written;
    std::vector<std::int32_t> ended;
    ZParameterStorageBase* storage = nullptr; // not owned: the effect's
    ZChannel_StripEditor editor;
    ZChannel_StripEffect effect; // ends first: it still tells the editor
};

} // namespace tessaly::stage
