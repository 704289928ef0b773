#pragma once

#include "text_edit_imp.h"
#include "windows_api.h"
#include <string>
#include <string_view>

namespace tessaly
{

/// The live text field as an edit window of the system's over its control, at least 28 by 14 coordinates large. It has
/// the keyboard while it is open; who had it before gets it back. Host's user-interface thread.
class ZWinTextEditImp : public ZTextEditImp
{
public:
    /// @param over    the panel's window; not owned, outlives this
    /// @param pixels  a coordinate
    explicit ZWinTextEditImp (HWND over, double pixels = 1.0);
    ~ZWinTextEditImp () override; ///< closes it

    void SetText (std::string_view newText) override;
    std::string GetText () const override { return text; }
    bool Open (ZEvent& event, const ZMouseInput& mouse) override;
    bool Close (bool commit) override;
    bool IsOpen () const override { return editWindow != nullptr; }
    ZRect GetOpenRect () const override { return GetEditRect (); }
    ZRect GetEditRect () const; ///< coordinates of the panel; zero while closed

protected:
    HWND EditWindow () const { return editWindow; } ///< null while closed

private:
    void UseFont (int pixels);
    void TakeTyped ();

    HWND parent; // not owned
    double scale;
    HWND editWindow = nullptr; // owned; null while closed
    HFONT font = nullptr;      // owned
    HWND focusBefore = nullptr;
    std::string text;
};

/// The one that is used: it also watches the edit window's messages, for the keys and the loss of focus that end it.
class ZWinTextEditImpWithHandleEvent : public ZWinTextEditImp
{
public:
    using ZWinTextEditImp::ZWinTextEditImp;
    ~ZWinTextEditImpWithHandleEvent () override;

    bool Open (ZEvent& event, const ZMouseInput& mouse) override;
    bool Close (bool commit) override;

    virtual LRESULT HandleMessage (HWND window, UINT message, WPARAM wParam, LPARAM lParam);

protected:
    virtual void End (bool commit); ///< this object may end within it

private:
    static LRESULT CALLBACK Procedure (HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void PutProcedureBack ();

    WNDPROC previous = nullptr; // null while closed
};

} // namespace tessaly
