#include "binary_message.h"

namespace tessaly
{

Steinberg::tresult SendBinaryMessage (const Steinberg::Vst::ComponentBase& sender, const char* id,
                                      const char* attribute, const void* data, Steinberg::uint32 size)
{
    const auto binary = Steinberg::owned (sender.allocateMessage ());
    if (!binary || binary->getAttributes () == nullptr)
        return Steinberg::kResultFalse;
    binary->setMessageID (id);
    binary->getAttributes ()->setBinary (attribute, data, size);
    return sender.sendMessage (binary);
}

} // namespace tessaly
