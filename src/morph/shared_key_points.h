#pragma once

#include "key_points.h"
#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>

namespace tessaly
{

/// The set of key points in use, replaced whole on one thread while another may morph by it: a reader gets the old set
/// or the new one, never rows of both.
///
/// Two buffers and a generation whose lowest bit says which one is in use. A writer fills the other buffer, then raises
/// the generation; a reader copies, then reads again if the generation has changed meanwhile. A reader meets no lock;
/// it goes round once more only for a set that came while it was reading. Writers wait for one another.
class SharedKeyPoints
{
public:
    explicit SharedKeyPoints (const KeyPointSet& set);

    KeyPointSet Read () const;             ///< any thread
    void Replace (const KeyPointSet& set); ///< any thread but the audio thread

private:
    // The rows by eight bytes at once: a morph that runs on the audio thread copies them all.
    static constexpr std::size_t kWords = (sizeof (KeyPointSet::rows) + 7) / 8;
    using Cells = std::array<std::atomic<std::uint64_t>, kWords>;

    static void Fill (Cells& cells, const KeyPointSet& set);
    static KeyPointSet Copy (const Cells& cells);

    std::array<Cells, 2> buffers;
    std::atomic<std::uint32_t> generation = 0;
    std::mutex writing; // a host may restore a state on one thread while the user picks a set on another
};

} // namespace tessaly
