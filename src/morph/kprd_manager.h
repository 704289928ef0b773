#pragma once

#include "kprd_collection.h"
#include "kprd_data.h"
#include "kprd_select.h"
#include <cstdint>
#include <vector>

namespace tessaly
{

inline constexpr std::size_t kCommentSize = 100; // bytes of an entry's comment, for FindByContent

/// The collection of key-point sets that a user can choose from: the tree of entries, read once and held whole; the
/// lines that the file dialog shows of it; and the entry chosen last. Without any entry the built-in set is the only
/// one there is. The tree never changes after Load, so entries may be pointed to for as long as the manager lives.
/// User-interface thread.
class KPRD_Manager
{
public:
    explicit KPRD_Manager (KPRD_MakeBackEnd factory = {});

    void Load (); ///< reads the collection and lists its top level. Call it once

    const KPRD_Entries& Roots () const { return roots; } ///< top level, sorted
    const std::vector<KPRD_Select>& Selects () const { return selects; }

    KPRD_Data* Current () const { return current; } ///< null for none
    void SetCurrent (KPRD_Data* entry) { current = entry; }

    /// Lists anew, after a folder has been opened or closed: folders first, the entries of an open one below it.
    void Rebuild ();

    /// The first file of that name, case counting, in a walk through the tree that enters each folder at its place: the
    /// sorted top level, where of equal names the one that was read first comes first.
    /// @return null when there is none; folders never match
    KPRD_Data* FindByName (const char* name) const;

    /// The first file in such a walk through `list` whose name begins with the first `length` bytes of `name` and whose
    /// comment is the kCommentSize bytes at `comment`. Entries have no comment: only zeros match. @return null for none
    static KPRD_Data* FindByContent (const char* name, const void* comment, std::uint32_t length,
                                     const KPRD_Entries& list);

private:
    void AddSelects (std::uint32_t depth, const std::vector<KPRD_Data*>& list);

    KPRD_MakeBackEnd makeBackEnd;
    KPRD_Entries roots;
    std::vector<KPRD_Select> selects;
    KPRD_Data* current = nullptr; // not owned: one of the tree
};

} // namespace tessaly
