#include "ansi_text.h"

#include <windows.h>

namespace tessaly
{

std::string Utf8OfAnsi (std::string_view text)
{
    const auto length = static_cast<int> (text.size ());
    std::wstring wide (text.size (), L'\0'); // never more units than bytes
    const int units = MultiByteToWideChar (CP_ACP, 0, text.data (), length, wide.data (), length);
    const int bytes = WideCharToMultiByte (CP_UTF8, 0, wide.data (), units, nullptr, 0, nullptr, nullptr);
    std::string utf8 (static_cast<std::size_t> (bytes), '\0');
    WideCharToMultiByte (CP_UTF8, 0, wide.data (), units, utf8.data (), bytes, nullptr, nullptr);
    return utf8;
}

} // namespace tessaly
