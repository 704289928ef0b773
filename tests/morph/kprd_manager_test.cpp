#include "kprd_manager.h"
#include <cstring>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

KPRD_Data& Add (KPRD_Data::Children& entries)
{
    return *entries.emplace_back (std::make_unique<KPRD_Data> ());
}

} // namespace

TEST_CASE ("KPRD_Manager: finds the first file of a name, in folders too, but no folder and no other case")
{
    KPRD_Manager manager;
    CHECK (manager.FindByName ("Soft") == nullptr);
    auto& folder = Add (manager.Roots ());
    auto& inside = Add (folder.SetName ("Warm"));
    auto& outside = Add (manager.Roots ());
    inside.SetFile ("Soft", 2);
    std::memcpy (outside.SetFile ("Soft", 4), "KPRD", 4);
    auto& empty = Add (manager.Roots ());
    empty.SetFile ("Empty", 0);

    CHECK (manager.FindByName ("Soft") == &inside);
    CHECK (manager.FindByName ("soft") == nullptr);
    CHECK (manager.FindByName ("Warm") == nullptr);
    CHECK (manager.FindByName ("Empty") == nullptr); // without bytes it is a folder
    CHECK (outside.Size () == 4);
    CHECK (std::memcmp (outside.Data (), "KPRD", 4) == 0);
    empty.SetName (std::string (300, 'n').c_str ());
    CHECK (std::string (empty.Name ()) == std::string (255, 'n'));
}
