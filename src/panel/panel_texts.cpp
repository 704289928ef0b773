#include "panel_texts.h"

namespace tessaly
{

const char* const kAboutVersionLine = "Tessaly Blending Bench Ver " TESSALY_SHORT_VERSION;

} // namespace tessaly
