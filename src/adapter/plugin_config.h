#pragma once

#include <cstdint>

/// The fixed strings and build-time switches of the plug-in. Class ids are computed from `kClassIdName` and
/// `kFourCharacterId`: a change there makes stored projects lose the plug-in.
namespace tessaly::config
{

inline constexpr const char* kPluginName = "Tessaly Bench [m]";
inline constexpr const char* kControllerName = "Tessaly Bench [m] Controller";
inline constexpr const char* kClassIdName = "Tessaly Rack [m]";
inline constexpr std::uint32_t kFourCharacterId = 0x6373744D;
inline constexpr const char* kVersion = TESSALY_VERSION; ///< of the project, in the top CMakeLists.txt
inline constexpr const char* kVendor = "Arrowmere Sound Works";
inline constexpr const char* kVendorUrl = "https://arrowmere.example";
inline constexpr const char* kVendorEmail = "mailto:support@arrowmere.example";
inline constexpr const char* kSubCategories = "Fx|Dynamics";
inline constexpr const char* kSdkVersion = "VST 3.5.0";

inline constexpr std::int32_t kChannels = 1;   ///< the strip is mono: one channel in, one out
inline constexpr std::int32_t kMeterCount = 2; ///< meter 0: gain reduction, meter 1: output
inline constexpr bool kUsesMidi = false;       ///< true adds an event bus, 130 MIDI parameters and their mapping

} // namespace tessaly::config
