#pragma once

#include "kprd_data.h"

namespace tessaly
{

/// The collection of key-point sets that a user can choose from, and the one chosen last. Without any entry, as it is
/// made, the built-in set is the only one there is. User-interface thread.
class KPRD_Manager
{
public:
    KPRD_Data::Children& Roots () { return roots; } ///< top level; filled once, before anyone asks

    KPRD_Data* Current () const { return current; } ///< null for none
    void SetCurrent (KPRD_Data* entry) { current = entry; }

    /// The first file of that name, case counting, in a walk through the tree that enters each folder at its place.
    /// @return null when there is none; folders never match
    KPRD_Data* FindByName (const char* name) const;

private:
    KPRD_Data::Children roots;
    KPRD_Data* current = nullptr; // not owned: one of the tree
};

} // namespace tessaly
