#include "kprd_manager.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace tessaly
{

namespace
{

/// Walks depth first. @return the first file that `matches`, or null
template <typename Predicate>
KPRD_Data* FindFile (const KPRD_Entries& entries, const Predicate& matches)
{
    for (const auto& entry : entries)
    {
        if (entry == nullptr)
            continue;
        if (entry->IsFolder ())
        {
            if (auto* found = FindFile (entry->Children (), matches))
                return found;
        }
        else if (matches (*entry))
            return entry.get ();
    }
    return nullptr;
}

} // namespace

KPRD_Manager::KPRD_Manager (KPRD_MakeBackEnd factory)
    : makeBackEnd (std::move (factory))
{
}

void KPRD_Manager::Load ()
{
    KPRD_Collection (makeBackEnd).Load (roots);
    // Stable: of two folders or files of one name, that of the folder that was read first stays first.
    std::stable_sort (roots.begin (), roots.end (), [] (const auto& a, const auto& b) { return a->IsLess (*b); });
    Rebuild ();
}

void KPRD_Manager::Rebuild ()
{
    std::vector<KPRD_Data*> top;
    CopyEntries (roots, top);
    selects.clear ();
    AddSelects (0, top);
}

void KPRD_Manager::AddSelects (std::uint32_t depth, const std::vector<KPRD_Data*>& list)
{
    for (auto* entry : list)
    {
        selects.emplace_back (entry, depth);
        if (!entry->IsFolder () || !entry->IsExpanded ())
            continue;
        std::vector<KPRD_Data*> children; // sorted for the eye alone: a walk by name keeps the back end's order
        entry->CopyChildren (children);
        std::stable_sort (children.begin (), children.end (),
                          [] (const auto* a, const auto* b) { return a->IsLess (*b); });
        AddSelects (depth + 1, children);
    }
}

KPRD_Data* KPRD_Manager::FindByName (const char* name) const
{
    const std::string_view wanted = name;
    return FindFile (roots, [wanted] (const KPRD_Data& file) { return file.Name () == wanted; });
}

KPRD_Data* KPRD_Manager::FindByContent (const char* name, const void* comment, std::uint32_t length,
                                        const KPRD_Entries& list)
{
    return FindFile (list,
                     [&] (const KPRD_Data& file)
                     {
                         std::array<char, kCommentSize> own{};
                         file.Comment (own.data ());
                         return std::strncmp (name, file.Name (), length) == 0 &&
                                std::memcmp (comment, own.data (), own.size ()) == 0;
                     });
}

} // namespace tessaly
