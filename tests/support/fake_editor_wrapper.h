#pragma once

#include "canvas.h"
#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "editor_wrapper.h"
#include "effect_wrapper.h"
#include "parameter_storage_base.h"
#include "recording_canvas.h"
#include "vu_buffer.h"
#include <string>
#include <utility>
#include <vector>

namespace tessaly
{

/// The window's and the effect's place around an editor: a storage, meters, and lists of what the editor asked for.
class FakeEditorWrapper final : public ZEditorWrapper
{
public:
    FakeEditorWrapper () { storage.Allocate (1, 4); }

    ZParameterStorageBase storage;
    ZVuBuffer meters{ 2, 0.0f };
    bool hasEffect = true;
    std::vector<std::pair<std::int32_t, float>> written;
    std::vector<std::string> loaded;     // names of images
    std::vector<std::string> tooltipLog; // what the tooltip of the window showed
    ZPoint size;                         // as last asked for

    bool QueryEffect (std::int32_t, void*) override { return false; }
    bool GetInfo (std::int32_t kind, void* out) override
    {
        if (!hasEffect)
            return false;
        if (kind == kCodeStorage)
            *static_cast<ZParameterStorageBase**> (out) = &storage;
        else if (kind == kCodeVuBuffer)
            *static_cast<ZVuBuffer**> (out) = &meters;
        else if (kind == kCodeSampleRate)
            *static_cast<double*> (out) = 96000.0;
        else
            return false;
        return true;
    }
    void SetParameter (std::int32_t tag, float value) override
    {
        written.emplace_back (tag, value);
        storage.SetNormalized (tag, value);
    }
    void EndEdit (std::int32_t) override {}
    void ResizeTo (std::int32_t width, std::int32_t height) override { size = { width, height }; }
    std::unique_ptr<ZBitmapImp> CreateBitmap (std::string_view name) override
    {
        loaded.emplace_back (name);
        return name == "missing" ? nullptr : std::make_unique<NamedBitmapImp> (name);
    }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return std::make_unique<ZCanvasMenuImp> (measure); }
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override
    {
        return std::make_unique<ZCanvasTextEditImp> (measure, nullptr);
    }
    std::unique_ptr<ZTooltipImp> CreateTooltipImp () override { return std::make_unique<Tooltip> (tooltipLog); }

private:
    RecordingCanvasImp ruler;
    ZOnscreenCanvas measure{ ruler };

    struct Tooltip final : ZTooltipImp
    {
        explicit Tooltip (std::vector<std::string>& words)
            : log (words)
        {
        }
        void Show (const ZRect& area, std::string_view text) override
        {
            log.push_back ((std::ostringstream () << text << " at " << area).str ());
        }
        void Hide () override { log.emplace_back ("hidden"); }
        std::vector<std::string>& log; // not owned: the wrapper's
    };
};

} // namespace tessaly
