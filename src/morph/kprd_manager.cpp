#include "kprd_manager.h"

#include <string_view>

namespace tessaly
{

namespace
{

KPRD_Data* FindIn (const KPRD_Data::Children& entries, std::string_view name)
{
    for (const auto& entry : entries)
    {
        if (entry->IsFolder ())
        {
            if (auto* found = FindIn (entry->Entries (), name))
                return found;
        }
        else if (entry->Name () == name)
            return entry.get ();
    }
    return nullptr;
}

} // namespace

KPRD_Data* KPRD_Manager::FindByName (const char* name) const
{
    return FindIn (roots, name);
}

} // namespace tessaly
