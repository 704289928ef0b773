#include "old_plugin_core.h"

#include "old_effect.h"

namespace tessaly
{

ZOldPluginCore::ZOldPluginCore (ZEffect* owner)
    : ZPluginCore (owner)
    , oldEffect (dynamic_cast<ZOldEffect*> (owner))
{
}

void ZOldPluginCore::SetMeter (std::int32_t index, float value)
{
    if (oldEffect != nullptr)
        oldEffect->SetMeter (index, value);
}

void ZOldPluginCore::SetMeterDirect (std::int32_t index, float value)
{
    if (oldEffect != nullptr)
        oldEffect->SetMeterDirect (index, value);
}

} // namespace tessaly
