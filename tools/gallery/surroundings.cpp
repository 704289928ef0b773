#include "surroundings.h"

#include "cairo_bitmap_imp.h"
#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "effect_wrapper.h"
#include "parameters.h"

namespace tessaly::gallery
{

Surroundings::Surroundings (ZCanvasImp& surface)
    : measuring (surface)
    , meters (kMeters, 0.0f)
{
    FillParameters (storage);
}

bool Surroundings::QueryEffect (std::int32_t /*kind*/, void* /*out*/)
{
    return false;
}

bool Surroundings::GetInfo (std::int32_t kind, void* out)
{
    if (kind == kCodeStorage)
        *static_cast<ZParameterStorageBase**> (out) = &storage;
    else if (kind == kCodeVuBuffer)
        *static_cast<ZVuBuffer**> (out) = &meters;
    else
        return false;
    return true;
}

std::unique_ptr<ZBitmapImp> Surroundings::CreateBitmap (std::string_view name)
{
    return ZCairoBitmapImp::Load (images, name, measuring.GetScale ());
}

std::unique_ptr<ZMatrixMenuImp> Surroundings::CreateMenuImp ()
{
    return std::make_unique<ZCanvasMenuImp> (measuring);
}

std::unique_ptr<ZTextEditImp> Surroundings::CreateTextEditImp ()
{
    return std::make_unique<ZCanvasTextEditImp> (measuring, &clipboard);
}

} // namespace tessaly::gallery
