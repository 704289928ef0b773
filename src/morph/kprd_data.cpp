#include "kprd_data.h"

namespace tessaly
{

KPRD_Data::Children& KPRD_Data::SetName (const char* text)
{
    PutText (name.data (), text);
    return children;
}

std::uint8_t* KPRD_Data::SetFile (const char* text, std::uint32_t size)
{
    PutText (name.data (), text);
    bytes.resize (size);
    return bytes.data ();
}

} // namespace tessaly
