#include "text_conversion.h"

namespace tessaly
{

void Widen (const char* text, Steinberg::Vst::String128 out)
{
    constexpr std::size_t kCapacity = 128;
    std::size_t i = 0;
    for (; i + 1 < kCapacity && text[i] != 0; ++i)
        out[i] = static_cast<unsigned char> (text[i]);
    out[i] = 0;
}

void Narrow (const Steinberg::Vst::TChar* text, std::array<char, 256>& out)
{
    std::size_t i = 0;
    for (; text != nullptr && i + 1 < out.size () && text[i] != 0; ++i)
        out[i] = static_cast<char> (text[i] & 0xFF);
    out[i] = 0;
}

} // namespace tessaly
