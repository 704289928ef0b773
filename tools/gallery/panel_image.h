#pragma once

namespace tessaly::gallery
{

class Sketch;

/// Draws what lies behind all controls: cells, titles, and what a control has around it.
void DrawPanel (Sketch& sketch);

} // namespace tessaly::gallery
