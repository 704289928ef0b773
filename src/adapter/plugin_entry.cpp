#include "base/source/updatehandler.h"
#include "class_id.h"
#include "host_context.h"
#include "plugin_config.h"
#include "pluginterfaces/base/smartpointer.h"
#include "public.sdk/source/main/pluginfactory.h"
#include "vst3_controller_wrapper.h"
#include "vst3_effect_wrapper.h"
#include <mutex>
#include <utility>

#ifndef RELEASE
#error "Without RELEASE the SDK traps into a debugger at tear-down, which kills the host"
#endif

using namespace Steinberg;

namespace tessaly
{

namespace
{

/// Hosts load, scan and unload on threads of their own: guards the making, the end and the context of the one factory.
/// Recursive, as the factory's end lets go of the host's context, and what the host does then is its affair.
std::recursive_mutex factoryMutex;

/// The SDK's factory, which also keeps the host context for the controllers.
class PluginFactory final : public CPluginFactory
{
public:
    explicit PluginFactory (const PFactoryInfo& info)
        : CPluginFactory (info)
    {
    }

    tresult PLUGIN_API setHostContext (FUnknown* context) override
    {
        IPtr<FUnknown> other (context); // the old one is let go of outside the lock: that runs the host's code
        const std::scoped_lock lock (factoryMutex);
        std::swap (other, hostContext);
        return kResultTrue;
    }
    IPtr<FUnknown> HostContext () const { return hostContext; }
    uint32 PLUGIN_API release () override
    {
        const std::scoped_lock lock (factoryMutex);
        return CPluginFactory::release ();
    }

private:
    /// What the SDK would make with the first controller, and twice for two threads that make one each. Held, so that
    /// threads still at work may use it when the process ends and the SDK's statics go.
    IPtr<UpdateHandler> updateHandler{ UpdateHandler::instance () };
    IPtr<FUnknown> hostContext;
};

PClassInfo2 MakeClassInfo (const FUID& id, const char* category, const char* name, int32 flags)
{
    return PClassInfo2 (id.toTUID (), PClassInfo::kManyInstances, category, name, flags, config::kSubCategories, "",
                        config::kVersion, config::kSdkVersion);
}

PluginFactory* MakeFactory ()
{
    const PFactoryInfo info (config::kVendor, config::kVendorUrl, config::kVendorEmail, PFactoryInfo::kUnicode);
    auto* factory = new PluginFactory (info); // counted by the SDK: the host's last release deletes it
    const PClassInfo2 processor =
        MakeClassInfo (ProcessorClassId (), kVstAudioEffectClass, config::kPluginName, Vst::kDistributable);
    const PClassInfo2 controller =
        MakeClassInfo (ControllerClassId (), kVstComponentControllerClass, config::kControllerName, 0);
    factory->registerClass (&processor, ZVst3EffectWrapper::CreateInstance);
    factory->registerClass (&controller, ZVst3ControllerWrapper::CreateInstance);
    return factory;
}

} // namespace

IPtr<FUnknown> FactoryHostContext ()
{
    const std::scoped_lock lock (factoryMutex);
    return gPluginFactory != nullptr ? static_cast<PluginFactory*> (gPluginFactory)->HostContext () : nullptr;
}

} // namespace tessaly

/// The class factory: made on the first call, the same object with one more reference on every later one, made anew
/// after its last release. Processor first, controller second.
SMTG_EXPORT_SYMBOL IPluginFactory* PLUGIN_API GetPluginFactory ()
{
    const std::scoped_lock lock (tessaly::factoryMutex);
    if (gPluginFactory != nullptr)
        gPluginFactory->addRef ();
    else
        gPluginFactory = tessaly::MakeFactory ();
    return gPluginFactory;
}
