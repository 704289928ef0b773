#include "channel_strip_storage.h"
#include "kprd_manager.h"
#include <doctest/doctest.h>
#include <string>
#include <utility>
#include <vector>

using namespace tessaly;

namespace
{

using Texts = std::vector<std::string>;

void Add (KPRD_Entries& entries, std::initializer_list<std::pair<const char*, std::uint32_t>> namesAndSizes)
{
    for (const auto& [name, size] : namesAndSizes)
        entries.emplace_back (std::make_unique<KPRD_Data> ())->SetFile (name, size);
}

/// A back end that needs no disk. Without bytes an entry is a folder.
class FixedCollection : public KPRD_CollectionImp
{
    void Load (KPRD_Entries& list) override
    {
        Add (list, { { "b", 2 }, { "A", 2 }, { "soft", 4 }, { "z", 0 }, { "_c", 2 }, { "empty", 0 } });
        Add (list[3]->Children (), { { "Y", 2 }, { "soft", 8 }, { "x", 2 } });
    }
};

Texts Lines (const KPRD_Manager& manager)
{
    Texts lines;
    for (const auto& line : manager.Selects ())
        lines.push_back (std::string (2 * line.Depth (), ' ') + line.Data ()->Name ());
    return lines;
}

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
    folder->SetExpanded (false);
    manager.Rebuild ();
    CHECK (Lines (manager) == closed);
}

TEST_CASE ("KPRD_Manager: finds the first file of a name in the walk, but no folder and no other case")
{
    KPRD_Manager manager ([] { return std::make_unique<FixedCollection> (); });
    manager.Load ();
    REQUIRE (manager.FindByName ("soft") != nullptr);
    CHECK (manager.FindByName ("soft")->Size () == 8); // the folder stands before the files
    CHECK (manager.FindByName ("Soft") == nullptr);
    CHECK (manager.FindByName ("z") == nullptr);

    const std::string noComment (kCommentSize, '\0');
    const auto withContent = [&] (std::uint32_t length)
    { return KPRD_Manager::FindByContent ("sofa", noComment.data (), length, manager.Roots ()); };
    CHECK (withContent (3) == manager.FindByName ("soft"));
    CHECK (withContent (4) == nullptr);
}

TEST_CASE ("KPRD_Manager: of equal names the one that was read first is found, however many there are")
{
    class SameNames : public KPRD_CollectionImp
    {
        void Load (KPRD_Entries& list) override
        {
            for (std::uint32_t i = 1; i <= 40; ++i) // sixteen do not make an unstable sort show
            {
                Add (list, { { i % 2 == 0 ? "Voice" : "voice", 0 } });
                Add (list.back ()->Children (), { { "soft", i } });
            }
        }
    };
    KPRD_Manager manager ([] { return std::make_unique<SameNames> (); });
    manager.Load ();
    CHECK (manager.FindByName ("soft")->Size () == 1);
    for (std::size_t i = 0; i < 40; ++i)
        REQUIRE (manager.Roots ()[i]->Children ().front ()->Size () == i + 1);
}
