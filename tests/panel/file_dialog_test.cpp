#include "file_dialog.h"

#include "kprd_text_button.h"
#include "panel_ids.h"
#include "strip_fixture.h"
#include <algorithm>
#include <doctest/doctest.h>
#include <string>

using namespace tessaly;

namespace
{

constexpr ZRect kOkRect{ 361, 279, 423, 298 };
constexpr ZRect kTrack{ 520, 75, 535, 242 };
constexpr ZPoint kCancel{ 440, 285 };
constexpr ZPoint kToBottom{ 527, 265 };
constexpr ZPoint kToTop{ 527, 50 };
constexpr ZPoint kLineUp{ 527, 65 };
constexpr ZPoint kLineDown{ 527, 250 };
constexpr std::int32_t kRows = 12;

/// Two folders of two files each and 20 files: 22 lines with the folders closed, of which 12 are in sight.
void TwoFoldersAndFiles (KPRD_Entries& list)
{
    for (const char* folder : { "Bass", "Drums" })
        for (auto* entries = &MadeUpCollection::AddFolder (list, folder); const char* file : { "one", "two" })
            MadeUpCollection::AddFile (*entries, file);
    for (char letter = 'a'; letter < 'a' + 20; ++letter)
        MadeUpCollection::AddFile (list, std::string (1, letter).c_str ());
}

void OneFile (KPRD_Entries& list)
{
    MadeUpCollection::AddFile (list, "only");
}

struct DialogFixture : StripFixture
{
    ZBitmap panel = NamedBitmap ("panel");
    ZBitmap ok = NamedBitmap ("ok");
    ZBitmap button = NamedBitmap ("button");
    ZBitmap icon = NamedBitmap ("icon");
    ZAMX_FileDialog dialog{ this, { 311, 37, 543, 306 }, kFileDialogId };
    int closings = 0;

    explicit DialogFixture (MadeUpCollection::Fill fill = TwoFoldersAndFiles)
        : StripFixture (fill)
    {
        dialog.SetBackground (&panel);
        dialog.SetFontSize (11);
        dialog.SetRows (kRows);
        dialog.SetSelectionColor (113, 234, 255);
        dialog.SetFolderIcon (&icon, { 0, 0, 9, 8 }, 2, 10);
        dialog.SetThumbStyle (1, 1, 140, 152, 167);
        dialog.SetItem (0, &ok, 3, kOkRect);
        dialog.SetItem (1, &button, 2, { 431, 280, 491, 297 });
        dialog.SetItem (2, nullptr, 0, { 319, 45, 520, 272 });
        dialog.SetItem (3, &button, 2, { 520, 45, 535, 59 });
        dialog.SetItem (4, &button, 2, { 520, 258, 535, 272 });
        dialog.SetItem (5, &button, 2, { 520, 60, 535, 74 });
        dialog.SetItem (6, &button, 2, { 520, 243, 535, 257 });
        dialog.SetItem (8, nullptr, 0, kTrack);
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
    std::string Cursor () const
    {
        const auto* item = List ().GetCursorItem ();
        return item != nullptr ? item->Name () : "";
    }
    static ZPoint OnText (std::int32_t row) { return { 400, 45 + 19 * row + 9 }; }
    static ZPoint OnIcon (std::int32_t row) { return { 325, 45 + 19 * row + 9 }; }
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
        for (const auto& call : Drawn (dialog))
            if (call.starts_with ("DrawBitmap ok"))
                return std::stoi (call.substr (call.rfind (',') + 1)) / kOkRect.Height ();
        return -1;
    }
    void Choose (const char* name) { manager->SetCurrent (manager->FindByName (name)); }
    void Reopen ()
    {
        dialog.Hide ();
        dialog.Show ();
    }
};

} // namespace

TEST_CASE ("FileDialog: opens on the set in use, in the middle of the list and in its folder")
{
    DialogFixture f;
    CHECK (f.Cursor ().empty ());
    f.Choose ("p");
    f.Reopen ();
    CHECK (f.Cursor () == "p");
    CHECK (f.Top () == 10); // the 17th line of 22; it would be in the middle from line 11 on
    f.Choose ("two");
    f.Reopen ();
    CHECK (f.List ().Count () == 24);
    CHECK (f.List ().IndexOf (f.manager->Current ()) == 2);
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: OK and a double click accept a file that is not the one in use")
{
    DialogFixture f;
    f.Choose ("a");
    f.Reopen ();
    CHECK (f.OkFrame () == 0);
    f.Press (f.dialog, kOkRect.TopLeft ());
    CHECK (f.OkFrame () == 0);
    f.Release (f.dialog, kOkRect.TopLeft ());
    CHECK (f.closings == 0);

    f.Click (f.OnText (3));
    CHECK (f.Cursor () == "b");
    CHECK (f.OkFrame () == 1);
    SUBCASE ("OK, unless the pointer leaves it")
    {
        f.Press (f.dialog, kOkRect.TopLeft ());
        CHECK (f.OkFrame () == 2);
        f.Drag (f.dialog, { 300, 200 });
        CHECK_FALSE (f.Drag (f.dialog, kOkRect.TopLeft ()) == false);
        f.Release (f.dialog, kOkRect.TopLeft ());
        CHECK (f.closings == 0);
        f.Click (kOkRect.TopLeft ());
    }
    SUBCASE ("double click")
    {
        f.Click (f.OnText (3));
    }
    SUBCASE ("return")
    {
        CHECK (f.Key (f.dialog, kKeyReturn));
    }
    CHECK (f.closings == 1);
    CHECK (f.dialog.WasAccepted ());
    CHECK (f.manager->Current () == f.manager->FindByName ("b"));
    f.Click (f.OnText (3)); // now it is in use
    f.Click (f.OnText (3));
    f.Key (f.dialog, kKeyEnter);
    CHECK (f.closings == 1);
}

TEST_CASE ("FileDialog: OK on a folder goes down and accepts nothing")
{
    DialogFixture f;
    f.Click (f.OnText (0));
    CHECK (f.OkFrame () == 1);
    f.Press (f.dialog, kOkRect.TopLeft ());
    CHECK (f.OkFrame () == 2);
    f.Release (f.dialog, kOkRect.TopLeft ());
    CHECK (f.closings == 0);
    CHECK_FALSE (f.Key (f.dialog, kKeyReturn));
}

TEST_CASE ("FileDialog: Cancel and Escape choose nothing")
{
    DialogFixture f;
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
    f.Click (f.OnText (0));
    CHECK (f.List ().Count () == 22);
    f.Click (f.OnText (0));
    CHECK (f.List ().Count () == 24);
    f.ClickLater (f.OnIcon (0));
    CHECK (f.List ().Count () == 22);
    f.Click (f.OnIcon (0)); // the second click of a double one
    CHECK (f.List ().Count () == 22);
    f.ClickLater (f.OnIcon (1));
    CHECK (f.Cursor () == "Drums");
    CHECK (f.List ().Count () == 24);
    CHECK (f.Key (f.dialog, kKeyLeft));
    CHECK (f.List ().Count () == 22);
    CHECK_FALSE (f.Key (f.dialog, kKeyLeft));
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
    CHECK (f.List ().Count () == 22);
    CHECK (f.Top () == 10);
    f.Click (kToTop);
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: a held arrow steps at once, after 500 ms and then each 150 ms")
{
    DialogFixture f;
    f.Press (f.dialog, kLineDown);
    CHECK (f.Top () == 1);
    f.Hold (kLineDown, 490);
    CHECK (f.Top () == 1);
    f.Hold (kLineDown, 10);
    CHECK (f.Top () == 2);
    f.Hold (kLineDown, 140);
    CHECK (f.Top () == 2);
    f.Hold (kLineDown, 10);
    CHECK (f.Top () == 3);
    f.Hold (kLineDown, 3000);
    CHECK (f.Top () == 10);
    f.Release (f.dialog, kLineDown);
    f.Press (f.dialog, kLineUp);
    f.Release (f.dialog, kLineUp);
    CHECK (f.Top () == 9);
}

TEST_CASE ("FileDialog: a held track pages until the thumb is under the pointer")
{
    DialogFixture f;
    // 167 rows for 22 lines, of which 12 are in sight: a thumb of 91, at the top
    CHECK (f.dialog.ThumbRect () == ZRect{ 520, 75, 535, 166 });
    f.Press (f.dialog, { 527, 240 });
    CHECK (f.Top () == 10);
    CHECK (f.dialog.ThumbRect () == ZRect{ 520, 151, 535, 242 });
    f.Hold ({ 527, 240 }, 1000);
    CHECK (f.Top () == 10);
    f.Release (f.dialog, { 527, 240 });
    f.Press (f.dialog, { 527, 80 });
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: the thumb can be dragged")
{
    DialogFixture f;
    f.Press (f.dialog, { 527, 100 });
    f.Drag (f.dialog, { 700, 138 }); // half of the 76 pixels that it can go
    CHECK (f.Top () == 5);
    f.Drag (f.dialog, { 527, 400 });
    CHECK (f.Top () == 10);
    f.Drag (f.dialog, { 527, -400 });
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: the wheel scrolls over list and track alone")
{
    DialogFixture f;
    f.window.pointer = f.OnText (4);
    CHECK (f.Wheel (f.dialog, -3));
    CHECK (f.Top () == 3);
    CHECK (f.Wheel (f.dialog, 100));
    CHECK_FALSE (f.Wheel (f.dialog, 1)); // it is at the top
    f.window.pointer = kCancel;
    CHECK_FALSE (f.Wheel (f.dialog, -1));
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: keys move the cursor and keep it in sight")
{
    DialogFixture f;
    CHECK_FALSE (f.Key (f.dialog, kKeyDown)); // there is none yet
    f.Click (f.OnText (11));
    f.Key (f.dialog, kKeyDown);
    CHECK (f.Cursor () == "k");
    CHECK (f.Top () == 1);
    f.Key (f.dialog, kKeyPageDown);
    CHECK (f.Cursor () == "t"); // past the end: the last line
    CHECK (f.Top () == 10);
    f.Key (f.dialog, kKeyDown);
    CHECK (f.Cursor () == "t");
    f.Click (kToTop);
    f.Key (f.dialog, kKeyDown); // stays, and comes back into sight
    CHECK (f.Cursor () == "t");
    CHECK (f.Top () == 10);
    f.Key (f.dialog, kKeyPageUp);
    CHECK (f.Cursor () == "h");
    CHECK (f.Top () == 9);
    f.Key (f.dialog, kKeyPageUp);
    CHECK (f.Cursor () == "Bass");
    CHECK (f.Top () == 0);
}

TEST_CASE ("FileDialog: with fewer lines than rows nothing scrolls")
{
    DialogFixture f (OneFile);
    CHECK (f.dialog.ThumbRect () == kTrack);
    f.Click ({ 527, 100 });
    f.Click (kLineDown);
    f.Click (kToBottom);
    f.window.pointer = f.OnText (0);
    CHECK_FALSE (f.Wheel (f.dialog, -1));
    CHECK (f.Top () == 0);
    f.Click (f.OnText (3)); // below the last line
    CHECK (f.Cursor ().empty ());
}

TEST_CASE ("FileDialog: draws a line for each entry, indented in folders, with the cursor's bar")
{
    DialogFixture f;
    f.Click (f.OnIcon (0));
    const auto log = f.Drawn (f.dialog);
    const auto draws = [&] (const char* call) { return std::find (log.begin (), log.end (), call) != log.end (); };
    CHECK (draws ("DrawText 'Bass' 338,45,520,63 17"));
    CHECK (draws ("DrawText 'one' 353,64,520,82 17"));
    CHECK (draws ("DrawText 'Drums' 338,102,520,120 17"));
    CHECK (draws ("DrawBitmap icon 324,50,333,58 from 0,8")); // open
    CHECK (draws ("DrawBitmap icon 324,107,333,115 from 0,0"));
    CHECK (draws ("FillRect 319,45,520,63"));
    CHECK (draws ("SetFont Arial 12 1"));
    CHECK (draws ("SetFont Arial 11 0"));
}

TEST_CASE ("KPRDTextButton: shows the set's name, in the middle or from its beginning")
{
    StripFixture f;
    ZAMX_KPRDTextButton button (&f, { 314, 6, 531, 27 }, kNameButtonId);
    f.Show (button);
    button.SetTextRect ({ 4, 4, 196, 17 });
    const auto text = [&]
    {
        const auto log = f.Drawn (button);
        return log.empty () ? "" : log.back ();
    };
    CHECK (text () == "");
    button.SetStripStorage (f.storage);
    CHECK (text () == "DrawText '01 Basic' 318,10,510,23 18");
    const std::string tooLong (32, 'x'); // of 6 pixels each
    f.effect.SetKeyPointName (tooLong.c_str ());
    CHECK (text () == "DrawText '" + tooLong + "' 318,10,510,23 17");
    button.SetActive (false);
    CHECK (text () == "DrawText '" + tooLong + "' 318,10,510,23 17");
}
