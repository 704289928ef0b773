#include "kprd_data.h"

#include "ascii_case.h"
#include <algorithm>
#include <string_view>

namespace tessaly
{

namespace
{

/// Lower case, the way names are compared: '_' stands before the letters.
unsigned char Folded (char c)
{
    return static_cast<unsigned char> (AsciiLower (c));
}

} // namespace

bool KPRD_Data::IsLess (const KPRD_Data& other) const
{
    if (IsFolder () != other.IsFolder ())
        return IsFolder ();
    const std::string_view mine = Name ();
    const std::string_view others = other.Name ();
    return std::lexicographical_compare (mine.begin (), mine.end (), others.begin (), others.end (),
                                         [] (char a, char b) { return Folded (a) < Folded (b); });
}

void KPRD_Data::CopyChildren (std::vector<KPRD_Data*>& out) const
{
    CopyEntries (children, out);
}

KPRD_Entries& KPRD_Data::SetName (const char* text)
{
    PutText (name.data (), CutAtCharacter (text, name.size () - 1));
    return children;
}

std::uint8_t* KPRD_Data::SetFile (const char* text, std::uint32_t size)
{
    SetName (text);
    bytes.assign (size, 0);
    return bytes.data ();
}

void CopyEntries (const KPRD_Entries& entries, std::vector<KPRD_Data*>& out)
{
    out.clear ();
    for (const auto& entry : entries)
        out.push_back (entry.get ());
}

} // namespace tessaly
