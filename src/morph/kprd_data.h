#pragma once

#include "text_buffer.h"
#include <cstdint>
#include <memory>
#include <vector>

namespace tessaly
{

class KPRD_Data;

/// Entries of one level of the key-point collection, with their owner.
using KPRD_Entries = std::vector<std::unique_ptr<KPRD_Data>>;

/// One entry of the key-point collection: a file, held in memory, or a folder, which is what has no bytes. Nothing here
/// looks at the bytes. User-interface thread.
class KPRD_Data
{
public:
    /// Folders before files, each group by name without regard to the case of ASCII letters.
    bool IsLess (const KPRD_Data& other) const;

    bool IsFolder () const { return bytes.empty (); }
    bool IsExpanded () const { return expanded; } ///< a folder that is open in the dialog
    void SetExpanded (bool open) { expanded = open; }
    const char* Name () const { return name.data (); }      ///< UTF-8, without extension
    bool Comment (char* /*buffer*/) const { return false; } ///< an entry has none: nothing is written
    const std::uint8_t* Data () const { return bytes.empty () ? nullptr : bytes.data (); }
    std::uint32_t Size () const { return static_cast<std::uint32_t> (bytes.size ()); }

    /// Replaces `out` by the entries of this folder, which stay owned by it.
    void CopyChildren (std::vector<KPRD_Data*>& out) const;
    KPRD_Entries& Children () { return children; }

    /// Names a folder. @return its entries, to be filled. A name of more than 255 bytes is cut at a whole character
    KPRD_Entries& SetName (const char* text);

    /// Names a file of that many bytes. @return the bytes, all zero, to be filled
    std::uint8_t* SetFile (const char* text, std::uint32_t size);

private:
    ZText name{};
    std::vector<std::uint8_t> bytes;
    KPRD_Entries children;
    bool expanded = false;
};

/// Replaces `out` by the entries that `entries` goes on owning.
void CopyEntries (const KPRD_Entries& entries, std::vector<KPRD_Data*>& out);

} // namespace tessaly
