#pragma once

#include <array>
#include <cstdint>

/// Where the user aims at, in pixels of the panel at scale 1 from its top left. Said here once more, on purpose: what
/// moves on the panel by mistake must fail.
namespace tessaly::test
{

struct Place
{
    int x;
    int y;
    Place operator+ (Place by) const { return { x + by.x, y + by.y }; }
};

struct Area
{
    int left;
    int top;
    int width;
    int height;
};

inline constexpr Area kPanel{ 0, 0, 560, 315 };

enum Id : std::uint32_t
{
    kDrive = 0,
    kAttack = 1,
    kRelease = 2,
    kRatio = 3,
    kKnee = 4,
    kSideChainF = 7,
    kHighF = 10,
    kHighG = 11,
    kMidF = 12,
    kMidG = 13,
    kMidQ = 14,
    kLowF = 15,
    kLowG = 16,
    kTotalGain = 17,
    kEqualizerBypass = 18,
    kCompressorBypass = 19,
    kMorph = 20
};

/// A small dial's middle; a ring of 53 pixels grows around it.
struct SmallDial
{
    Id id;
    Place knob;
};
inline constexpr std::array<SmallDial, 14> kSmallDials{ {
    { kAttack, { 89, 71 } },
    { kRelease, { 89, 89 } },
    { kRatio, { 89, 107 } },
    { kSideChainF, { 89, 203 } },
    { Id{ 8 }, { 89, 221 } },
    { Id{ 9 }, { 89, 185 } },
    { kTotalGain, { 480, 229 } },
    { kHighF, { 480, 177 } },
    { kHighG, { 480, 195 } },
    { kMidF, { 393, 177 } },
    { kMidG, { 393, 195 } },
    { kMidQ, { 393, 159 } },
    { kLowF, { 306, 177 } },
    { kLowG, { 306, 195 } },
} };

inline constexpr Place kAttackKnob{ 89, 71 };
inline constexpr Place kAttackText{ 121, 71 };
inline constexpr Place kDriveDial{ 202, 191 };
inline constexpr Place kMorphDial{ 280, 254 };
inline constexpr Place kKneeSoft{ 48, 142 };
inline constexpr Place kKneeHard{ 128, 142 };
inline constexpr Place kCompressorSwitch{ 30, 283 };
inline constexpr Place kCompressorSwitchFrame{ 70, 270 }; ///< of the switch, where it takes no press
inline constexpr Place kEqualizerSwitch{ 530, 283 };
inline constexpr Place kName{ 420, 16 };
inline constexpr Area kNameArea{ 318, 10, 192, 13 }; ///< where the set's name stands
inline constexpr Place kEmpty{ 260, 40 };
inline constexpr Area kDialog{ 311, 37, 232, 269 };
inline constexpr Place kDialogOk{ 392, 288 };
inline constexpr Place kDialogCancel{ 461, 288 };
inline constexpr Area kOverlaySpot{ 240, 34, 40, 16 };

/// The middle of a line of the dialog's list, at its text.
constexpr Place DialogLine (int line)
{
    return { 420, 45 + line * 19 + 9 };
}
constexpr Place DialogFolderIcon (int line)
{
    return { 328, 45 + line * 19 + 9 };
}

} // namespace tessaly::test
