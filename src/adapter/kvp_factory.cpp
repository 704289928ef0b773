#include "kvp_factory.h"

#include "channel_strip.h"
#include "channel_strip_editor.h"
#include "channel_strip_effect.h"
#include "channel_strip_parameters.h"
#include "channel_strip_storage.h"
#include "key_point_folders.h"

#include <mutex>

namespace tessaly
{

namespace
{
std::mutex mutex;                // needs no destruction: some hosts tear instances down from `exit`
ZKvpFactory* instance = nullptr; // counted by its users
} // namespace

ZKvpFactory* ZKvpFactory::GetInstance ()
{
    const std::scoped_lock lock (mutex);
    if (instance != nullptr)
        ++instance->references;
    else
        instance = new ZKvpPluginFactory; // the last Release deletes it
    return instance;
}

void ZKvpFactory::Release ()
{
    const std::scoped_lock lock (mutex);
    if (--references == 0)
        delete this;
}

ZKvpFactory::~ZKvpFactory ()
{
    instance = nullptr;
}

std::unique_ptr<ZEffect> ZKvpPluginFactory::CreateEffect (ZEffectWrapper* wrapper)
{
    return std::make_unique<ZChannel_StripEffect> (wrapper);
}

std::unique_ptr<ZPluginCore> ZKvpPluginFactory::CreateCore (ZEffect* effect)
{
    return std::make_unique<Channel_Strip> (effect);
}

ZParameterStorageBase* ZKvpPluginFactory::CreateStorage (ZEffect& effect, std::int32_t)
{
    auto storage = std::make_unique<ZChannel_StripStorage> (MakePlatformCollection);
    ZParameterStorageBase* const borrowed = storage.get ();
    const auto records = ChannelStripRecords ();
    const ZProgramRecord program = ChannelStripProgram ();
    effect.SetStorage (std::move (storage), records.data (), &program, 1, kStripParameterCount);
    return borrowed;
}

std::unique_ptr<ZGuiEditor> ZKvpPluginFactory::CreateEditor (ZEditorWrapper& surroundings)
{
    return std::make_unique<ZChannel_StripEditor> (surroundings);
}

} // namespace tessaly
