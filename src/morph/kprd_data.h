#pragma once

#include "text_buffer.h"
#include <cstdint>
#include <memory>
#include <vector>

namespace tessaly
{

/// One entry of the key-point collection: a file, held whole in memory, or a folder, which is what has no bytes.
/// User-interface thread.
class KPRD_Data
{
public:
    using Children = std::vector<std::unique_ptr<KPRD_Data>>;

    bool IsFolder () const { return bytes.empty (); }
    const char* Name () const { return name.data (); } ///< UTF-8, without extension
    const std::uint8_t* Data () const { return bytes.empty () ? nullptr : bytes.data (); }
    std::uint32_t Size () const { return static_cast<std::uint32_t> (bytes.size ()); }
    const Children& Entries () const { return children; }

    /// Names a folder. @return its entries, to be filled. A name of more than 255 bytes is cut
    Children& SetName (const char* text);

    /// Names a file of that many bytes. @return the bytes, to be filled
    std::uint8_t* SetFile (const char* text, std::uint32_t size);

private:
    ZText name{};
    std::vector<std::uint8_t> bytes;
    Children children;
};

} // namespace tessaly
