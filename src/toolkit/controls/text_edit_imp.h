#pragma once

#include "overlay_imp.h"
#include <string>
#include <string_view>

namespace tessaly
{

class ZTextEdit;

/// The live text field behind a ZTextEdit. Return closes it with commit; escape and the loss of focus without: it calls
/// the control's CloseModal, which calls Close.
class ZTextEditImp : public ZOverlayImp
{
public:
    void SetControl (ZTextEdit* edit) { control = edit; }

    virtual void SetText (std::string_view text) = 0; ///< UTF-8; at most 255 bytes are kept, whole characters
    virtual std::string GetText () const = 0;
    virtual bool Open (ZEvent& event, const ZMouseInput& mouse) = 0; ///< all selected; false when it was open already
    virtual bool Close (bool commit) = 0; ///< takes the typed text over only with commit. @return false

protected:
    ZTextEdit* control = nullptr; // not owned: owns this
};

} // namespace tessaly
