#pragma once

#include <cstdint>
#include <string>

namespace tessaly
{

/// An image of the platform. One that could not be loaded has size 0 and draws nothing.
class ZBitmapImp
{
public:
    virtual ~ZBitmapImp () = default;

    virtual const std::string& GetName () const = 0; ///< that it was loaded under; at most 255 bytes
    virtual std::uint32_t GetWidth () const = 0;     ///< nominal pixels, whatever the density of the data
    virtual std::uint32_t GetHeight () const = 0;
};

} // namespace tessaly
