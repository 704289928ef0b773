#pragma once

#include "canvas.h"
#include "clipboard.h"
#include "drawn_images.h"
#include "editor_wrapper.h"
#include "parameter_storage_base.h"
#include "tooltip_sign.h"
#include "vu_buffer.h"
#include <string>

namespace tessaly::gallery
{

class MemoryClipboard final : public ZClipboard
{
public:
    std::string GetText () override { return kept; }
    void SetText (std::string_view text) override { kept = text; }

private:
    std::string kept;
};

/// What the editor asks of a plug-in and a window, without either: parameters, meters, images, and the back ends that
/// are drawn on the surface itself.
class Surroundings final : public ZEditorWrapper
{
public:
    static constexpr std::int32_t kMeters = 2;

    explicit Surroundings (ZCanvasImp& surface); ///< borrowed: the window's

    ZParameterStorageBase& Storage () { return storage; }
    ZVuBuffer& Meters () { return meters; }
    const TooltipSign& Sign () const { return sign; }

    bool QueryEffect (std::int32_t kind, void* out) override;
    bool GetInfo (std::int32_t kind, void* out) override;
    void SetParameter (std::int32_t id, float value) override { storage.SetNormalized (id, value); }
    void EndEdit (std::int32_t /*id*/) override {}                              // no host keeps values
    void ShowCursor () override {}                                              // no control ends in a drag
    void ResizeTo (std::int32_t /*width*/, std::int32_t /*height*/) override {} // the surface is of a fixed size
    std::unique_ptr<ZBitmapImp> CreateBitmap (std::string_view name) override;
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override;
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override;
    std::unique_ptr<ZTooltipImp> CreateTooltipImp () override { return std::make_unique<SignTooltipImp> (sign); }

private:
    ZOnscreenCanvas measuring;
    ZParameterStorageBase storage;
    ZVuBuffer meters;
    DrawnImages images;
    MemoryClipboard clipboard;
    TooltipSign sign;
};

} // namespace tessaly::gallery
