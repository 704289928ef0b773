#pragma once

#include "public.sdk/source/vst/vstcomponentbase.h"
#include <cstring>

/// The messages between processor and controller. Each carries the raw bytes of one value of this process under one
/// attribute; both halves live in one address space.
namespace tessaly
{

namespace message
{
inline constexpr const char* kPointerAttribute = "Ptr4";

inline constexpr const char* kConnectEffect = "ConnectEffectPointer";       ///< to controller: ZEffect*
inline constexpr const char* kDisconnectEffect = "DisconnectEffectPointer"; ///< to controller: ZEffect*
inline constexpr const char* kMono = "MONO";                                ///< to controller: ZEffect*
inline constexpr const char* kStereo = "STEREO";                            ///< to controller: ZEffect*
inline constexpr const char* kChannelCount = "NUMCHANNEL";                  ///< to controller: ZEffect*
inline constexpr const char* kActive = "Active";                            ///< to controller: state in the first byte
inline constexpr const char* kConnectEditor = "ConnectEditorPointer";       ///< to processor: ZEffectListener*
inline constexpr const char* kDisconnectEditor = "DisconnectEditorPointer"; ///< to processor: any
} // namespace message

/// Sends `size` bytes at `data` to the peer of `sender`.
/// @return the peer's answer, or kResultFalse when the host gives no message
Steinberg::tresult SendBinaryMessage (const Steinberg::Vst::ComponentBase& sender, const char* id,
                                      const char* attribute, const void* data, Steinberg::uint32 size);

/// Reads the value of a message. Some hosts hand on messages of strangers: one that is shorter than T is refused.
/// @return false, and `value` as it was, if the attribute is missing or too short
template <typename T>
bool ReadValue (Steinberg::Vst::IMessage& received, T& value)
{
    const void* data = nullptr;
    Steinberg::uint32 size = 0;
    Steinberg::Vst::IAttributeList* attributes = received.getAttributes ();
    if (attributes == nullptr ||
        attributes->getBinary (message::kPointerAttribute, data, size) != Steinberg::kResultOk || data == nullptr ||
        size < sizeof (T))
        return false;
    std::memcpy (&value, data, sizeof (T));
    return true;
}

} // namespace tessaly
