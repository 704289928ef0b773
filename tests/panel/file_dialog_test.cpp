#include "file_dialog.h"

#include "panel_layout.h"
#include "strip_fixture.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;
using namespace tessaly::layout;

namespace
{

constexpr ZPoint kOkPoint{ 380, 285 };
constexpr ZPoint kCancel{ 440, 285 };
constexpr ZPoint kToTop{ 527, 50 };
constexpr ZPoint kToBottom{ 527, 265 };
constexpr ZPoint kLineUp{ 527, 65 };
constexpr ZPoint kLineDown{ 527, 250 };

/// Two folders of two files each and 20 files: 22 lines with the folders closed, of which 12 are in sight.
void TwoFoldersAndFiles (KPRD_Entries& list)
{
    for (const char* folder : { "Bass", "Drums" })
        for (auto* entries = &MadeUpCollection::AddFolder (list, folder); const char* file : { "one", "two" })
            MadeUpCollection::AddFile (*entries, file);
    for (char letter = 'a'; letter < 'a' + 20; ++letter)
        MadeUpCollection::AddFile (list, std::string (1, letter).c_str ());
}

struct DialogFixture : StripFixture
{
    ZBitmap ok = NamedBitmap ("ok");
    ZBitmap icon = NamedBitmap ("icon");
    ZAMX_FileDialog dialog{ this, kDialog, kFileDialogId };
    int closings = 0;

    explicit DialogFixture (MadeUpCollection::Fill fill = TwoFoldersAndFiles)
        : StripFixture (fill)
    {
        dialog.SetFontSize (kListFontSize);
        dialog.SetRows (kDialogRows);
        dialog.SetFolderIcon (&icon, kFolderIcon, kFolderFrames, kFolderGap);
        for (const auto& place : kDialogItems)
            dialog.SetItem (place.item, place.item == 0 ? &ok : nullptr, place.frames, place.rect);
        dialog.SetManager (manager);
        dialog.Hide ();
        StripFixture::Show (dialog);
        dialog.Show ();
    }
    void OnValue (std::int32_t id, float value) override
    {
        StripFixture::OnValue (id, value);
        closings += id == kFileDialogId;
    }

    const FileList& List () const { return dialog.GetList (); }
    std::int32_t Top () const { return List ().GetTop (); }
    std::string Cursor () const { return List ().GetCursorItem () ? List ().GetCursorItem ()->Name () : ""; }
    static ZPoint OnText (std::int32_t row) { return { 400, 54 + 19 * row }; }
    static ZPoint OnIcon (std::int32_t row) { return { 325, 54 + 19 * row }; }
    void Click (ZPoint point)
    {
        Press (dialog, point);
        Release (dialog, point);
    }
    void ClickLater (ZPoint point) ///< so that it is no double click
    {
        window.time += 1000;
        Click (point);
    }
    void Hold (ZPoint point, std::uint32_t milliseconds)
    {
        for (std::uint32_t i = 0; i < milliseconds; i += 10)
        {
            window.time += 10;
            Drag (dialog, point);
        }
    }
    int OkFrame ()
    {
        const auto calls = Drawn (dialog);
        const auto ofOk = [] (const auto& call) { return call.operation == "DrawBitmap" && call.text == "ok"; };
        const auto call = std::find_if (calls.begin (), calls.end (), ofOk);
        return call->from.y / 19;
    }
    void ReopenOn (const char* name)
    {
        manager->SetCurrent (manager->FindByName (name));
        dialog.Hide ();
        dialog.Show ();
    }
};

} // namespace

TEST_CASE ("FileDialog: opens on the set in use, in sight and in its folder")
{
    DialogFixture f;
    CHECK (f.Cursor ().empty ());
    f.ReopenOn ("m"); // line 14 of 22
    CHECK (f.Cursor () == "m");
    CHECK (f.Top () == 8);
    f.ReopenOn ("two");
    CHECK (f.List ().Count () == 24);
    CHECK (f.List ().IndexOf (f.manager->Current ()) == 2);
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: OK, double click and return accept a file that is not the one in use")
{
    DialogFixture f;
    f.ReopenOn ("a");
    CHECK (f.OkFrame () == 0);
    f.Press (f.dialog, kOkPoint);
    CHECK (f.OkFrame () == 0);
    f.Release (f.dialog, kOkPoint);
    CHECK (f.closings == 0);

    f.Click (f.OnText (3));
    CHECK (f.Cursor () == "b");
    CHECK (f.OkFrame () == 1);
    SUBCASE ("OK, unless the pointer leaves it")
    {
        f.Press (f.dialog, kOkPoint);
        CHECK (f.OkFrame () == 2);
        f.Drag (f.dialog, kLineUp);
        f.Drag (f.dialog, kOkPoint);
        f.Release (f.dialog, kOkPoint);
        CHECK (f.closings == 0);
        f.Click (kOkPoint);
    }
    SUBCASE ("double click")
    {
        f.Click (f.OnText (3));
    }
    SUBCASE ("return")
    {
        f.Key (f.dialog, kKeyReturn);
    }
    CHECK (f.closings == 1);
    CHECK (f.dialog.WasAccepted ());
    CHECK (f.manager->Current () == f.manager->FindByName ("b"));
    f.ClickLater (f.OnText (3)); // now it is in use
    f.Click (f.OnText (3));
    f.Key (f.dialog, kKeyEnter);
    CHECK (f.closings == 1);
}

TEST_CASE ("FileDialog: neither a folder nor Cancel and Escape choose anything")
{
    DialogFixture f;
    f.Click (f.OnText (0));
    f.Press (f.dialog, kOkPoint);
    CHECK (f.OkFrame () == 2);
    f.Release (f.dialog, kOkPoint);
    CHECK_FALSE (f.Key (f.dialog, kKeyReturn));
    CHECK (f.closings == 0);
    f.Click (f.OnText (5));
    f.Click (kCancel);
    f.Key (f.dialog, kKeyEscape);
    CHECK (f.closings == 2);
    CHECK_FALSE (f.dialog.WasAccepted ());
    CHECK (f.manager->Current () == nullptr);
}

TEST_CASE ("FileDialog: a click on a folder's icon or a double click on its name opens or closes it once")
{
    DialogFixture f;
    const auto linesAfter = [&] (ZPoint point, bool later)
    {
        later ? f.ClickLater (point) : f.Click (point);
        return f.List ().Count ();
    };
    CHECK (linesAfter (f.OnText (0), true) == 22);
    CHECK (linesAfter (f.OnText (0), false) == 24);
    CHECK (linesAfter (f.OnIcon (0), true) == 22);
    CHECK (linesAfter (f.OnIcon (0), false) == 22);
    CHECK (linesAfter (f.OnIcon (1), true) == 24);
    CHECK (f.Cursor () == "Drums");
    CHECK (f.Key (f.dialog, kKeyLeft));
    CHECK_FALSE (f.Key (f.dialog, kKeyLeft));
    CHECK (f.List ().Count () == 22);
    CHECK (f.Key (f.dialog, kKeyRight));
    CHECK (f.List ().Count () == 24);
}

TEST_CASE ("FileDialog: a folder that closes near the end leaves no blank lines")
{
    DialogFixture f;
    f.Click (f.OnIcon (0));
    f.Click (kToBottom);
    CHECK (f.Top () == 12);
    f.Key (f.dialog, kKeyLeft); // the cursor is on the folder, out of sight
    CHECK (f.Top () == 10);
    f.Click (kToTop);
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: a held arrow steps at once, after 500 ms and then each 150 ms")
{
    DialogFixture f;
    const auto topAfter = [&] (std::uint32_t milliseconds)
    {
        f.Hold (kLineDown, milliseconds);
        return f.Top ();
    };
    f.Press (f.dialog, kLineDown);
    CHECK (f.Top () == 1);
    CHECK (topAfter (490) == 1);
    CHECK (topAfter (10) == 2);
    CHECK (topAfter (140) == 2);
    CHECK (topAfter (10) == 3);
    CHECK (topAfter (3000) == 10);
    f.Release (f.dialog, kLineDown);
    f.Click (kLineUp);
    CHECK (f.Top () == 9);
}

TEST_CASE ("FileDialog: a held track pages until the thumb is under the pointer")
{
    DialogFixture f;
    f.Click (f.OnIcon (1));
    f.ClickLater (f.OnIcon (0)); // 26 lines: the thumb is 167 * 12 / 26 = 77 high, and can go by 90
    CHECK (f.dialog.ThumbRect () == ZRect{ 520, 75, 535, 152 });
    f.Press (f.dialog, { 527, 155 });
    f.Hold ({ 527, 155 }, 1000);
    CHECK (f.Top () == 12);
    CHECK (f.dialog.ThumbRect () == ZRect{ 520, 152, 535, 229 });
    f.Release (f.dialog, { 527, 155 });
    f.Click ({ 527, 241 });
    CHECK (f.Top () == 14);
    f.Press (f.dialog, { 527, 80 });
    f.Hold ({ 400, 80 }, 1000); // beside the track it goes on
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: thumb and wheel scroll, the wheel over list and track alone")
{
    DialogFixture f; // the thumb is 91 high, and can go by 76
    const auto draggedTo = [&] (std::int32_t y)
    {
        f.Drag (f.dialog, { 700, y });
        return f.Top ();
    };
    f.Press (f.dialog, { 527, 100 });
    CHECK (draggedTo (138) == 5);
    CHECK (draggedTo (400) == 10);
    CHECK (draggedTo (-400) == 0);
    f.Release (f.dialog, {});

    f.window.pointer = f.OnText (4);
    CHECK (f.Wheel (f.dialog, -3));
    CHECK (f.Top () == 3);
    CHECK (f.Wheel (f.dialog, 100));
    CHECK_FALSE (f.Wheel (f.dialog, 1)); // it is at the top
    f.window.pointer = kCancel;
    CHECK_FALSE (f.Wheel (f.dialog, -1));
}

TEST_CASE ("FileDialog: keys move the cursor and keep it in sight")
{
    DialogFixture f;
    CHECK_FALSE (f.Key (f.dialog, kKeyDown)); // there is none yet
    f.Click (f.OnText (11));
    const auto goes = [&] (std::int32_t key, const char* cursor, std::int32_t top)
    {
        CHECK (f.Key (f.dialog, key));
        CHECK (f.Cursor () == cursor);
        CHECK (f.Top () == top);
    };
    goes (kKeyDown, "k", 1);
    goes (kKeyPageDown, "t", 10); // past the end: the last line
    f.Click (kToTop);
    goes (kKeyDown, "t", 10); // stays, and comes back into sight
    goes (kKeyPageUp, "h", 9);
    goes (kKeyPageUp, "Bass", 0);
}

TEST_CASE ("FileDialog: draws a line for each entry, indented in folders, with the cursor's bar")
{
    DialogFixture f;
    f.Click (f.OnIcon (0));
    const auto log = f.Drawn (f.dialog);
    for (const char* call :
         { "FillRect 319,45,520,63", "SetFont Arial 12 1", "DrawText 'Bass' 338,45,520,63 17",
           "DrawBitmap icon 324,50,333,58 from 0,8", "SetFont Arial 11 0", "DrawText 'one' 353,64,520,82 17",
           "DrawText 'Drums' 338,102,520,120 17", "DrawBitmap icon 324,107,333,115 from 0,0" })
        CHECK_MESSAGE (std::count (log.begin (), log.end (), call) > 0, call);
}
