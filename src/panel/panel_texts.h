#pragma once

/// Texts that the panel draws at run time and that are no parameter's. The about picture names product and version as
/// users say them; what hosts show is the adapter's.
namespace tessaly
{

extern const char* const kAboutVersionLine; ///< the project's version without its last number
inline constexpr const char* kAboutCopyrightLine = "Copyright 2026 Arrowmere Sound Works";

} // namespace tessaly
