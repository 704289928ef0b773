#include "built_in_script.h"

namespace tessaly::gallery
{

const std::string_view kBuiltInScript = R"(# Every control in use; a picture now and then.
level 0 0.35
level 1 0.5
snap 01-rest

# A dial turned, then finely, then another by its angle; a reset click at the end
point gain
idle 1200
snap 02-tooltip
press
drag 0 -25
release
press shift
drag 0 -20
release
click pan 18 -12
press
drag 0 18
snap 03-dials
release
click gain 0 0 control
point gain
press
drag 0 -12
release

# Switches: a rotary by its tick, one of several buttons, a toggle, a slide switch
click shape 20 -20
point polarity 0 24
press
drag 0 -48
release
click slope 38 0
click band-high
click latch2
click latch3
point latch4
press
snap 04-pressed
release

# Sliders: a thumb dragged, a track that pages while the button is down, the wheel, keys
point level 10 0
press
drag -32 0
release
point depth 0 -24
press
idle 900
release
point blend
wheel 3
click blend 20 0
key pageup
key up
click stamp
click tap
point pad
press
snap 05-sliders
release

# A value typed: everything is selected at first, then what shift and an arrow reach
double time
snap 06-field
type 87.25
key left shift
key left shift
snap 07-selection
key end
key return
double time
key a control
key c control
key escape

# ... and carried to another field
double pitch
key v control
key home
key delete
key return
point ratio
press
drag 0 -30
release

# A menu in columns, and one of pictures
click note
point note 140 39
snap 08-menu
click note 140 39
click wave
key up
key return

# Meters, automation, and a section switched off
level 0 0.85
level 1 1
set level 72
snap 09-meters
click power
point hover 60 20
idle 600
snap 10-off
)";

} // namespace tessaly::gallery
