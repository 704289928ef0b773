#pragma once

#include <clocale>
#include <doctest/doctest.h>

namespace tessaly::test
{

/// As long as it lives, the process runs under a locale with a decimal comma, as a host may.
class GermanLocale
{
public:
#ifdef _WIN32
    static constexpr const char* kName = "German_Germany";
#else
    static constexpr const char* kName = "de_DE.UTF-8";
#endif

    GermanLocale ()
    {
        REQUIRE (std::setlocale (LC_ALL, kName) != nullptr);
    }
    ~GermanLocale ()
    {
        std::setlocale (LC_ALL, "C");
    }
    GermanLocale (const GermanLocale&) = delete;
    GermanLocale& operator= (const GermanLocale&) = delete;
};

} // namespace tessaly::test
