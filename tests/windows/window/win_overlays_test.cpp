#include "own_module.h"
#include "pane_fixture.h"
#include "text_edit.h"
#include "win_gdi_event_imp.h"
#include "win_keyboard.h"
#include "win_matrix_menu_imp.h"
#include "win_text_edit_imp.h"
#include <array>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

/// A window of the system's, never shown.
class PlainWindow
{
public:
    ~PlainWindow () { DestroyWindow (handle); }
    HWND Handle () const { return handle; }

private:
    HWND handle =
        CreateWindowExW (0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr, OwnModule (), nullptr);
};

/// A control with the system's field over it, and what the field told it.
struct Field
{
    class Edit final : public ZTextEdit
    {
    public:
        Edit (const ZRect& rect, Field& of)
            : ZTextEdit (nullptr, rect, 1)
            , field (of)
        {
        }
        bool OnCloseModal (bool commit) override
        {
            field.closed = commit ? "commit" : "drop";
            return field.imp.Close (commit);
        }

    private:
        Field& field;
    };

    explicit Field (const ZRect& rect, double scale = 1.0)
        : imp (window.Handle (), scale)
        , edit (rect, *this)
    {
        imp.SetControl (&edit);
        imp.SetText ("1.5");
    }
    void Send (UINT message, WPARAM key) { SendMessageW (Child (), message, key, 0); }
    HWND Child () const { return GetWindow (window.Handle (), GW_CHILD); }

    FakeEvent input;
    ZEvent event{ input };
    PlainWindow window;
    ZWinTextEditImpWithHandleEvent imp;
    Edit edit;
    std::string closed;
};

} // namespace

TEST_CASE ("Text field: it is at least 28 by 14, about its control's middle")
{
    Field field ({ 50, 40, 70, 50 });
    REQUIRE (field.imp.Open (field.event, {}));
    CHECK (field.imp.GetEditRect () == ZRect{ 46, 38, 74, 52 });
    CHECK (!field.imp.Open (field.event, {}));

    Field dense ({ 50, 40, 90, 60 }, 2.0);
    REQUIRE (dense.imp.Open (dense.event, {}));
    RECT pixels{};
    GetClientRect (dense.Child (), &pixels);
    CHECK (pixels.right == 80);
    CHECK (dense.imp.GetEditRect () == ZRect{ 50, 40, 90, 60 });
}

TEST_CASE ("Text field: return takes what was typed, escape and a lost focus do not")
{
    struct Row
    {
        UINT message;
        WPARAM key;
        const char* closed;
        const char* text;
    };
    for (const Row& row : { Row{ WM_KEYDOWN, VK_RETURN, "commit", "2.25 µ" },
                            Row{ WM_KEYDOWN, VK_ESCAPE, "drop", "1.5" }, Row{ WM_KILLFOCUS, 0, "drop", "1.5" } })
    {
        CAPTURE (row.key);
        Field field ({ 50, 40, 90, 60 });
        REQUIRE (field.imp.Open (field.event, {}));
        SetWindowTextW (field.Child (), L"2.25 \x00B5");
        CHECK (SendMessageW (field.Child (), WM_GETDLGCODE, 0, 0) == DLGC_WANTALLKEYS);
        field.Send (row.message, row.key);
        CHECK (field.closed == row.closed);
        CHECK (field.imp.GetText () == row.text);
        CHECK (!field.imp.IsOpen ());
        CHECK (field.Child () == nullptr);
    }
}

TEST_CASE ("Menu: an ampersand is an ampersand, and a long text is cut")
{
    const ZWinMatrixMenuImp menu (nullptr);
    std::array<wchar_t, 6> text{};
    menu.ToMenuText ("a&b", text.data (), 5);
    CHECK (std::wstring (text.data ()) == L"a&&b");
    menu.ToMenuText ("\xC3\xA4"
                     "bcdefg",
                     text.data (), 5);
    CHECK (std::wstring (text.data ()) == L"\x00E4"
                                          L"bcde");
}

TEST_CASE ("Keys: a message gives the toolkit's key and the character")
{
    struct Row
    {
        WPARAM key;
        std::int32_t expected;
        char32_t character;
    };
    for (const Row& row :
         { Row{ VK_RETURN, kKeyReturn, 13 }, Row{ VK_LEFT, kKeyLeft, 0 }, Row{ VK_NUMPAD3, kKeyNumPad0 + 3, U'3' },
           Row{ VK_F12, kKeyF1 + 11, 0 }, Row{ VK_DELETE, kKeyDelete, 127 } })
    {
        CAPTURE (row.key);
        const auto key = KeyOfMessage (row.key, 0);
        CHECK (key.key == row.expected);
        CHECK (static_cast<std::uint32_t> (key.character) == static_cast<std::uint32_t> (row.character));
    }
    CHECK (KeyOfMessage (VK_RETURN, LPARAM{ 1 } << 24).key == kKeyEnter);
}

TEST_CASE ("Pointer: places are coordinates from the window's top left")
{
    PlainWindow window;
    SetWindowPos (window.Handle (), nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ZWinGDIEventImp input (window.Handle (), 2.0);
    input.SetMousePos ({ 20, 10 });
    CHECK (input.GetMousePos () == ZPoint{ 20, 10 });
    POINT place{};
    GetCursorPos (&place);
    CHECK (place.x == 70);
    CHECK (place.y == 60);
}
