#include "ardour_host.h"

#include "pluginterfaces/vst/ivsthostapplication.h"
#include <string_view>

namespace tessaly::ardour
{

using namespace Steinberg;

bool IsArdour (FUnknown* context)
{
    const FUnknownPtr<Vst::IHostApplication> host (context);
    Vst::String128 name{};
    return host && host->getName (name) == kResultOk && std::u16string_view (name) == u"Ardour";
}

} // namespace tessaly::ardour
