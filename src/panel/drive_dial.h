#pragma once

#include "edit_dial.h"

namespace tessaly
{

/// The dial of the drive, which stays live while the compressor is bypassed. Its class tells it apart for the editor.
class ZAMX_DriveDial final : public ZAMX_EditDialImp
{
public:
    using ZAMX_EditDialImp::ZAMX_EditDialImp;
};

} // namespace tessaly
