#include "editor_fixture.h"
#include "matrix_menus.h"
#include "text_edits.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

constexpr ZPoint kField{ 20, 5 };
constexpr ZPoint kMenu{ 70, 5 };

/// A typed value of parameter 0, a menu of three items of parameter 1 beside it, and a control of parameter 2 that lies
/// below the menu, later in the tree than its view.
struct FormFixture : EditorFixture<>
{
    ZView* view = nullptr; // not owned, as the next two: the editor's panes
    ZDrawTextEdit* field = nullptr;
    ZDrawMatrixMenu* menu = nullptr;

    void CreateControls () override
    {
        auto& root = *GetRootView ();
        view = AddPane (root, std::make_unique<ZView> (this, ZRect{ 0, 0, 120, 20 }));
        field = AddControl (*view, std::make_unique<ZDrawTextEdit> (this, ZRect{ 0, 0, 40, 20 }, 0));
        menu = AddControl (*view, std::make_unique<ZDrawMatrixMenu> (this, ZRect{ 60, 0, 120, 20 }, 1));
        menu->SetPlacement (kAtLeftBottom);
        for (const char* item : { "a", "b", "c" })
            menu->AddItem (item);
        menu->SetStep (1.0f / 3);
        AddProbe (root, { 0, 20, 200, 200 }, 2);
    }
    void Reopen ()
    {
        Close ();
        Open ({});
        Tick ();
    }
    void OpenField ()
    {
        window.time += 1000;
        Click (kField);
        Click (kField);
        REQUIRE (GetModalPane () == field);
        REQUIRE (Key (kKeyNone, '1'));
    }
    void OpenMenu ()
    {
        Click (kMenu);
        Tick ();
        REQUIRE (GetModalPane () == menu);
    }
    ZPoint Item (std::int32_t row) const ///< a point on it, while open
    {
        return menu->GetHitRect ().TopLeft () + menu->GetOrigin () + ZPoint{ 10, 10 + 18 * row };
    }
};

} // namespace

TEST_CASE_FIXTURE (FormFixture,
                   "An open field ends without a word with its editor, its pane or view and a changed value")
{
    const std::vector<std::function<void ()>> endings{ [this] { view->Hide (); }, [this] { Remove (field); },
                                                       [this] { wrapper.storage.SetNormalized (3, 0.5f); },
                                                       [this] { Reopen (); } };
    for (const auto& end : endings)
    {
        Reopen ();
        OpenField ();
        Paint ();
        CHECK_FALSE (NeedsRedraw ());
        end ();
        Tick ();
        CHECK (NeedsRedraw ());
        CHECK (GetModalPane () == nullptr);
        CHECK (wrapper.written.empty ());
    }
}

TEST_CASE_FIXTURE (FormFixture, "An open menu takes presses over what lies below it, and a press elsewhere closes it")
{
    Reopen ();
    OpenMenu ();
    CHECK (GetHoverPane () == nullptr);
    Click (Item (2));
    CHECK (log == Words_t{ "2 enter" }); // once the menu has gone
    CHECK (wrapper.storage.GetNormalized (1) == 1.0f);

    Tick (); // for the changed value
    OpenMenu ();
    CHECK (Press ({ 190, 190 })); // which counts there
    CHECK (GetModalPane () == nullptr);
    CHECK (log == Words_t{ "2 enter", "2 exit", "2 down" });

    // Hidden under a press on an item: no choice.
    OpenMenu ();
    CHECK (Press (Item (0)));
    view->Hide ();
    Drag (Item (0));
    Tick ();
    CHECK (GetModalPane () == nullptr);
    CHECK (wrapper.written.size () == 1);
}
