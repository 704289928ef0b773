#include "wide_text.h"

#include "windows_api.h"

namespace tessaly
{

std::wstring WideText (std::string_view utf8)
{
    const auto size = static_cast<int> (utf8.size ());
    std::wstring wide (static_cast<std::size_t> (MultiByteToWideChar (CP_UTF8, 0, utf8.data (), size, nullptr, 0)), 0);
    MultiByteToWideChar (CP_UTF8, 0, utf8.data (), size, wide.data (), static_cast<int> (wide.size ()));
    return wide;
}

std::string Utf8Text (std::wstring_view wide)
{
    const auto size = static_cast<int> (wide.size ());
    const int bytes = WideCharToMultiByte (CP_UTF8, 0, wide.data (), size, nullptr, 0, nullptr, nullptr);
    std::string utf8 (static_cast<std::size_t> (bytes), '\0');
    WideCharToMultiByte (CP_UTF8, 0, wide.data (), size, utf8.data (), bytes, nullptr, nullptr);
    return utf8;
}

} // namespace tessaly
