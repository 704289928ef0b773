#pragma once

/// Texts that the panel draws at run time and that are no parameter's. The about picture names product and version as
/// users say them; what hosts show is the adapter's.
namespace tessaly
{

inline constexpr const char* kAboutVersionLine = "Tessaly Blending Bench Ver 1.1.2";
inline constexpr const char* kAboutCopyrightLine = "Copyright 2026 Arrowmere Sound Works";

} // namespace tessaly
