#pragma once

#include "view.h"
#include <cstdint>

namespace tessaly
{

/// Shows one of several texts: that of the control which is dragged, or else under the pointer. The texts are its
/// children, each with the id of the control that it describes. A dragged control's text stays for half a second after
/// the drag, whatever the pointer is on by then.
class ZMultiTextView : public ZView
{
public:
    using ZView::ZView;

    bool AddPane (ZPane* pane) override; ///< which is hidden until its turn and lets the mouse through
    void OnIdle (ZEvent& event, const ZMouseInput& mouse) override;

private:
    enum class Source : std::uint8_t // of the text that is wanted
    {
        kNothing,
        kDrag,
        kPointer
    };

    bool HasText (std::int32_t paneId) const;
    void ShowText (std::int32_t wantedId);

    std::int32_t shownId = kNewPaneId; // kNewPaneId: no text
    Source previousSource = Source::kNothing;
    std::uint32_t holdStart = 0;  // milliseconds
    std::uint32_t holdTime = 500; // milliseconds
};

} // namespace tessaly
