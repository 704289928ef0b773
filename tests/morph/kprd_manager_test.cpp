#include "channel_strip_storage.h"
#include "kprd_manager.h"
#include <array>
#include <cstring>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace tessaly;

namespace
{

KPRD_Data& Add (KPRD_Entries& entries)
{
    return *entries.emplace_back (std::make_unique<KPRD_Data> ());
}

void AddFile (KPRD_Entries& entries, const char* name, std::uint32_t size = 2)
{
    Add (entries).SetFile (name, size);
}

/// A back end that needs no disk. In the order in which it lists:
///   b, A, soft, z/ (Y, soft, x), _c, empty (a file without bytes)
class FixedCollection : public KPRD_CollectionImp
{
public:
    void Load (KPRD_Entries& list) override
    {
        AddFile (list, "b");
        AddFile (list, "A");
        AddFile (list, "soft", 4);
        auto& inside = Add (list).SetName ("z");
        AddFile (inside, "Y");
        AddFile (inside, "soft", 8);
        AddFile (inside, "x");
        AddFile (list, "_c");
        AddFile (list, "empty", 0);
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
    int made = 0;
    ZChannel_StripStorage storage (
        [&made]
        {
            ++made;
            return std::make_unique<FixedCollection> ();
        });
    auto& manager = *storage.Manager ();
    CHECK (made == 1); // once, when the storage is made
    const Texts closed{ "empty", "z", "_c", "A", "b", "soft" };
    CHECK (Lines (manager) == closed);

    auto* folder = manager.Selects ()[1].Data ();
    folder->SetExpanded (true);
    CHECK (Lines (manager) == closed); // not before Rebuild
    manager.Rebuild ();
    CHECK (Lines (manager) == Texts{ "empty", "z", "  soft", "  x", "  Y", "_c", "A", "b", "soft" });
    std::vector<KPRD_Data*> children;
    folder->CopyChildren (children);
    CHECK (children.front ()->Name () == std::string ("Y")); // the tree keeps the order of the back end

    manager.SetCurrent (manager.Selects ()[2].Data ());
    folder->SetExpanded (false);
    manager.Rebuild ();
    CHECK (Lines (manager) == closed);
    CHECK (manager.Current () == children[1]);
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

    std::array<char, kCommentSize> comment{};
    const auto* found = KPRD_Manager::FindByContent ("sofa", comment.data (), 3, manager.Roots ());
    CHECK (found == manager.FindByName ("soft"));
    CHECK (KPRD_Manager::FindByContent ("sofa", comment.data (), 4, manager.Roots ()) == nullptr);
    comment.back () = 1;
    CHECK (KPRD_Manager::FindByContent ("sofa", comment.data (), 3, manager.Roots ()) == nullptr);
}

TEST_CASE ("KPRD_Data: a name that does not fit ends with a whole character")
{
    KPRD_Data entry;
    const std::string letters (253, 'n');
    entry.SetName ((letters + "\xC3\xA9\xC3\xA9").c_str ()); // two bytes each: one fits exactly
    CHECK (entry.Name () == letters + "\xC3\xA9");
    std::memset (entry.SetFile (("n" + letters + "\xC3\xA9").c_str (), 3), 7, 3); // half of one would fit
    CHECK (entry.Name () == "n" + letters);
    CHECK (entry.Data ()[2] == 7);
}
