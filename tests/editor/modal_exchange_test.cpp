#include "draw_matrix_menu.h"
#include "draw_text_edit.h"
#include "editor_desk.h"
#include <doctest/doctest.h>

using namespace tessaly;

namespace
{

using Words_t = std::vector<std::string>;

constexpr ZPoint kField{ 20, 5 };
constexpr ZPoint kMenu{ 70, 5 };

/// A typed value of parameter 0, a menu of three items of parameter 1 beside it, and a control of parameter 2 that lies
/// below the menu, later in the tree than its view.
class FormEditor final : public ZGuiEditor
{
public:
    explicit FormEditor (EditorDesk& itsDesk)
        : ZGuiEditor (itsDesk.wrapper)
        , desk (itsDesk)
    {
        Open ({});
        desk.Tick (*this);
    }
    ~FormEditor () override { Close (); }

    ZView* view = nullptr; // not owned, as the next three: this editor's panes
    ZDrawTextEdit* field = nullptr;
    ZDrawMatrixMenu* menu = nullptr;
    ProbeControl* below = nullptr;
    std::vector<std::string> log;

    void OpenField ()
    {
        desk.window.time += 1000;
        desk.Click (*this, kField);
        desk.Click (*this, kField);
        REQUIRE (GetModalPane () == field);
        REQUIRE (desk.Key (*this, kKeyNone, '1'));
    }
    void OpenMenu ()
    {
        desk.Click (*this, kMenu);
        REQUIRE (GetModalPane () == menu);
    }
    ZPoint Item (std::int32_t row) const ///< a point on it, while open
    {
        const auto rect = menu->GetHitRect () + menu->GetOrigin ();
        return rect.TopLeft () + ZPoint{ 10, 10 + 18 * row };
    }

protected:
    void CreateControls () override
    {
        view = AddPane (*GetRootView (), std::make_unique<ZView> (this, ZRect{ 0, 0, 120, 20 }));
        field = AddControl (*view, std::make_unique<ZDrawTextEdit> (this, ZRect{ 0, 0, 40, 20 }, 0));
        menu = AddControl (*view, std::make_unique<ZDrawMatrixMenu> (this, ZRect{ 60, 0, 120, 20 }, 1));
        menu->SetPlacement (kAtLeftBottom);
        for (const char* item : { "a", "b", "c" })
            menu->AddItem (item);
        menu->SetStep (1.0f / 3);
        below = AddControl (*GetRootView (), std::make_unique<ProbeControl> (this, ZRect{ 0, 20, 200, 200 }, 2));
        below->log = &log;
    }
    void DestroyControls () override {}
    void OnFocusGained () override {}
    void OnFocusLost () override {}

private:
    EditorDesk& desk; // not owned: the test's
};

} // namespace

TEST_CASE ("An open field ends without a word with its editor, its pane, its visibility and a changed value")
{
    EditorDesk desk;
    FormEditor editor (desk);
    editor.OpenField ();
    desk.Paint (editor);
    CHECK_FALSE (editor.NeedsRedraw ());
    SUBCASE ("hidden, with its view")
    {
        editor.view->Hide ();
        desk.Tick (editor);
        CHECK (editor.NeedsRedraw ());
    }
    SUBCASE ("removed")
    {
        CHECK (editor.Remove (editor.field));
        CHECK (editor.NeedsRedraw ()); // it goes from the surface, too
    }
    SUBCASE ("a value from elsewhere")
    {
        desk.wrapper.storage.SetNormalized (3, 0.5f);
        desk.Tick (editor);
        CHECK (editor.NeedsRedraw ());
    }
    SUBCASE ("closed, and open again")
    {
        editor.Close ();
        editor.Open ({});
        CHECK (editor.GetFocusPane () == nullptr);
    }
    CHECK (editor.GetModalPane () == nullptr);
    CHECK (desk.wrapper.written.empty ());
}

TEST_CASE ("An open menu takes presses over what lies below it, a press elsewhere closes it and counts there")
{
    EditorDesk desk;
    FormEditor editor (desk);
    editor.OpenMenu ();
    desk.Tick (editor);
    CHECK (editor.GetHoverPane () == nullptr);
    desk.Click (editor, editor.Item (2));
    CHECK (editor.log == Words_t{ "2 enter" }); // once the menu has gone
    CHECK (desk.wrapper.storage.GetNormalized (1) == 1.0f);

    desk.Tick (editor); // for the changed value
    editor.OpenMenu ();
    desk.Tick (editor);
    REQUIRE (editor.GetModalPane () == editor.menu);
    CHECK (desk.Press (editor, { 190, 190 }));
    CHECK (editor.GetModalPane () == nullptr);
    CHECK (editor.log == Words_t{ "2 enter", "2 exit", "2 down" });

    // Hidden under a press on an item: no choice.
    editor.OpenMenu ();
    CHECK (desk.Press (editor, editor.Item (0)));
    editor.view->Hide ();
    desk.Drag (editor, editor.Item (0));
    desk.Tick (editor);
    CHECK (editor.GetModalPane () == nullptr);
    CHECK (desk.wrapper.written.size () == 1);
}

TEST_CASE ("A pane that closes late leaves another one modal")
{
    EditorDesk desk;
    FormEditor editor (desk);
    editor.OpenField ();
    editor.menu->CloseModal (false);
    CHECK (editor.GetModalPane () == editor.field);
    editor.OpenMenu (); // the press closes the field
    editor.field->CloseModal (false);
    CHECK (editor.GetModalPane () == editor.menu);
    CHECK (desk.wrapper.written.empty ());
}
