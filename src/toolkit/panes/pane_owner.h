#pragma once

#include <cstdint>
#include <memory>

namespace tessaly
{

class ZMatrixMenuImp;
class ZPane;
class ZTextEditImp;
class ZView;

/// What panes ask of the editor that holds their tree. All pane pointers that it hands out or is given are borrowed.
class ZPaneOwner
{
public:
    virtual ~ZPaneOwner () = default;

    virtual bool GetInfo (std::int32_t kind, void* out) = 0; ///< of the effect; false without one
    virtual void SetModalPane (ZPane& pane) = 0;             ///< it has opened
    virtual void ReleaseModalPane (const ZPane& pane) = 0;   ///< it has closed; nothing if another is modal by now
    virtual ZPane* GetCapturePane () const = 0;              ///< that gets every move of the mouse; null without a drag
    virtual ZPane* GetHoverPane () const = 0;                ///< under the pointer, or null
    virtual ZView* GetRootView () const = 0;                 ///< null while closed
    virtual void ForgetPane (const ZPane& pane) = 0;         ///< the pane ends: no pointer to it may be kept
    virtual std::unique_ptr<ZTextEditImp> CreateTextEditImp () = 0; ///< null: there are no text fields here
    virtual std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () = 0;   ///< null: there are no menus here

    virtual void ShowCursor () = 0; ///< for a pane that ends with the cursor hidden; any other time a ZEvent is at hand

    virtual void CreateTooltip () = 0; ///< some pane has a tooltip: the means to show one are needed
    virtual void ShowTooltip (ZPane& pane) = 0;
    virtual void HideTooltip () = 0;
};

} // namespace tessaly
