#pragma once

#include "matrix_menu_imp.h"
#include "windows_api.h"
#include <cstddef>
#include <memory>
#include <string_view>

namespace tessaly
{

/// A menu of the system's. Open returns when it has closed again; the window's timer runs meanwhile, and the host may
/// even end the window. Host's user-interface thread.
class ZWinMatrixMenuImp : public ZMatrixMenuImp
{
public:
    /// @param over    the panel's window; not owned, outlives this
    /// @param pixels  a coordinate
    explicit ZWinMatrixMenuImp (HWND over, double pixels = 1.0);
    ~ZWinMatrixMenuImp () override;

    bool Open (ZEvent& event, const ZMouseInput& mouse) override; ///< @return false: it is closed by then
    bool Close (bool commit) override;                            ///< has nothing left to close. @return false
    bool IsOpen () const override { return tracking; }

    /// @param text    UTF-8; each ampersand is doubled, since a single one underlines the letter after it
    /// @param buffer  of size + 1 characters; as many as fit, then zero
    virtual void ToMenuText (std::string_view text, wchar_t* buffer, std::size_t size) const;

private:
    void InsertInto (HMENU menu, std::int32_t index) const;

    HWND window; // not owned
    double scale;
    bool tracking = false;       // Open has not returned yet
    std::shared_ptr<bool> alive; // false from this one's end on, for an Open that outlasts it
};

} // namespace tessaly
