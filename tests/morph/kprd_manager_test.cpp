#include "channel_strip_storage.h"
#include "kprd_manager.h"
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace tessaly;

namespace
{

KPRD_Data& Add (KPRD_Entries& entries, const char* name, std::uint32_t size = 2)
{
    auto& entry = *entries.emplace_back (std::make_unique<KPRD_Data> ());
    entry.SetFile (name, size);
    return entry;
}

/// A back end that needs no disk. In the order in which it lists:
///   b, A, soft, z/ (Y, soft, x), _c, empty (a file without bytes)
class FixedCollection : public KPRD_CollectionImp
{
public:
    void Load (KPRD_Entries& list) override
    {
        Add (list, "b");
        Add (list, "A");
        Add (list, "soft", 4);
        auto& inside = Add (list, "z", 0).Children ();
        Add (inside, "Y");
        Add (inside, "soft", 8);
        Add (inside, "x");
        Add (list, "_c");
        Add (list, "empty", 0);
    }
};

std::vector<std::string> Lines (const KPRD_Manager& manager)
{
    std::vector<std::string> lines;
    for (const auto& line : manager.Selects ())
        lines.push_back (std::string (2 * line.Depth (), ' ') + line.Data ()->Name ());
    return lines;
}

using Texts = std::vector<std::string>;

} // namespace

TEST_CASE ("KPRD_Manager: lists folders first, names without regard to case, and an open folder's entries below it")
{
    ZChannel_StripStorage storage ([] { return std::make_unique<FixedCollection> (); });
    auto& manager = *storage.Manager ();
    const Texts closed{ "empty", "z", "_c", "A", "b", "soft" };
    CHECK (Lines (manager) == closed);

    auto* folder = manager.Selects ()[1].Data ();
    folder->SetExpanded (true);
    manager.Rebuild ();
    CHECK (Lines (manager) == Texts{ "empty", "z", "  soft", "  x", "  Y", "_c", "A", "b", "soft" });

    auto* chosen = manager.Selects ()[2].Data ();
    manager.SetCurrent (chosen);
    folder->SetExpanded (false);
    manager.Rebuild ();
    CHECK (Lines (manager) == closed);
    CHECK (manager.Current () == chosen);
}

TEST_CASE ("KPRD_Manager: finds the first file of a name in the walk, but no folder and no other case")
{
    KPRD_Manager manager ([] { return std::make_unique<FixedCollection> (); });
    manager.Load ();
    REQUIRE (manager.FindByName ("soft") != nullptr);
    CHECK (manager.FindByName ("soft")->Size () == 8); // the folder stands before the files
    CHECK (manager.FindByName ("Soft") == nullptr);
    CHECK (manager.FindByName ("z") == nullptr);
    CHECK (manager.FindByName ("empty") == nullptr); // without bytes it is a folder

    const std::string noComment (kCommentSize, '\0');
    const auto withContent = [&] (std::uint32_t length)
    { return KPRD_Manager::FindByContent ("sofa", noComment.data (), length, manager.Roots ()); };
    CHECK (withContent (3) == manager.FindByName ("soft"));
    CHECK (withContent (4) == nullptr);
}
