#pragma once

#include "control.h"
#include "file_list.h"
#include <array>
#include <cstdint>

namespace tessaly
{

class ZBitmap;

/// The dialog that chooses a set of key points: the collection as a tree of at most two levels with a scroll bar, OK and
/// Cancel. It only chooses: what is accepted becomes the manager's current entry. Then, as after Cancel and Escape, the
/// dialog broadcasts its id with value 0; it is hidden by who listens, and WasAccepted tells the two apart.
///
/// Rectangles are in the parent's coordinates. Steps while a button is held come from moves of a pointer that stands
/// still, which the owner goes on sending.
class ZAMX_FileDialog final : public ZControl
{
public:
    enum Item : std::int32_t
    {
        kNoItem = -1,
        kOkButton = 0, // frames: nothing to accept, ready, pressed
        kCancelButton = 1,
        kListArea = 2,
        kToTopButton = 3,
        kToBottomButton = 4,
        kLineUpButton = 5,
        kLineDownButton = 6,
        kThumb = 7, // its rectangle follows from the track
        kTrack = 8,
        kItemCount = 9
    };

    using ZControl::ZControl;

    // The look. Images are borrowed: strips of frames from top to bottom, a button up and pressed, OK as told above
    void SetBackground (ZBitmap* image) { background = image; }
    std::int32_t GetFontSize () const { return fontSize; }
    void SetFontSize (std::int32_t pixels) { fontSize = pixels; } ///< of files; folders are bold and a pixel larger
    void SetTextColor (std::uint8_t red, std::uint8_t green, std::uint8_t blue) { textColor = { red, green, blue }; }
    void SetSelectionColor (std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    /// @param rect  of the closed folder's icon in the image, the first frame; the open one's is the second
    /// @param gap   pixels between icon and text
    void SetFolderIcon (ZBitmap* image, const ZRect& rect, std::int32_t frames, std::int32_t gap);
    void SetRows (std::int32_t count) { list.SetRows (count); }
    void SetItem (std::int32_t index, ZBitmap* image, std::int32_t frames,
                  const ZRect& rect); ///< index: of Item; a bad one changes nothing
    void SetThumbStyle (std::int32_t insetX, std::int32_t insetY, std::uint8_t red, std::uint8_t green,
                        std::uint8_t blue);

    void SetManager (KPRD_Manager* manager) { list.SetManager (manager); } ///< borrowed, or null: an empty list
    const FileList& GetList () const { return list; }
    KPRD_Data* GetSelectedItem () const { return list.GetSelectedItem (); } ///< null unless the cursor is on a file
    bool WasAccepted () const { return accepted; } ///< whether a file was chosen since the dialog was shown
    void Refresh ();                               ///< the cursor goes to the set in use, in sight
    void Accept (KPRD_Data* item);                 ///< a file; nothing else closes the dialog
    void Close ();                                 ///< asks to be hidden
    ZRect ThumbRect () const;

    void Show () override;
    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override { DrawActive (canvas, time); }
    void DrawList (ZCanvas& canvas, std::uint32_t time) const;
    void DrawItems (ZCanvas& canvas, std::uint32_t time) const;

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseWheel (ZEvent& event, const ZWheelInput& wheel) override; ///< over list and track
    bool OnKeyDown (ZEvent& event, const ZKeyInput& key) override;

private:
    struct ItemLook
    {
        ZBitmap* image = nullptr; // not owned: the editor's cache
        std::int32_t frames = 0;
        ZRect rect;
    };

    ZRect RectOf (std::int32_t item) const; // of Item

    // Drawing
    std::int32_t TextLeft () const; // of the top level
    void DrawLine (ZCanvas& canvas, const ZRect& row, std::int32_t index) const;
    void DrawIcon (ZCanvas& canvas, const ZRect& row, const KPRD_Data& folder) const;
    std::int32_t FrameOf (std::int32_t item) const;

    // Input
    std::int32_t ItemUnder (ZPoint point) const;
    bool GoesDown (std::int32_t item) const;
    bool ListClick (ZEvent& event, const ZMouseInput& mouse);
    void Repeat (const ZMouseInput& mouse);
    bool ScrollLine (); // by the arrow that is pressed
    void PageTowards (ZPoint point);
    void DragThumb (ZPoint point);
    bool MoveCursor (std::int32_t lines, bool pages);
    bool SetExpanded (KPRD_Data& item, bool on);

    FileList list;
    ZBitmap* background = nullptr; // not owned: the editor's cache
    std::array<ItemLook, kItemCount> items;
    std::int32_t fontSize = 8; // pixels
    ZColor textColor;
    ZColor selectionColor{ 255, 255, 255 };
    ZBitmap* iconImage = nullptr; // not owned: likewise
    ZRect iconRect;               // in the image
    std::int32_t iconGap = 0;
    std::int32_t thumbInsetX = 0;
    std::int32_t thumbInsetY = 0;
    ZColor thumbColor{ 28, 42, 57 };

    // The press that is on
    std::int32_t pressedItem = kNoItem;
    ZPoint pressPoint;
    ZPoint lastPoint; // of the last call of the mouse
    std::int32_t topAtPress = 0;
    std::int32_t pageStep = 0;    // lines, signed
    std::int32_t repeatCount = 0; // of steps; -1 before the first, 1 from the second on
    std::uint32_t nextTime = 0;   // milliseconds; the delay to the next step counts from here
    bool accepted = false;
};

} // namespace tessaly
