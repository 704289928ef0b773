#include "block_math_versions.h"

#include <array>

namespace tessaly
{

extern const BlockMath blockMathPlain;
#ifdef TESSALY_WIDE_VECTORS
extern const BlockMath blockMathV3;
extern const BlockMath blockMathV4;
#endif

namespace
{

#ifdef TESSALY_WIDE_VECTORS
constexpr std::array kVersions{ &blockMathPlain, &blockMathV3, &blockMathV4 };
#else
constexpr std::array kVersions{ &blockMathPlain };
#endif

/// How many of the versions, from the first on, this processor runs. Asks for every set of instructions that a version
/// is compiled for: there are processors, and virtual ones, with the vectors and without the fused multiply-add.
std::size_t runnableCount ()
{
#ifdef TESSALY_WIDE_VECTORS
    __builtin_cpu_init ();
    if (!__builtin_cpu_supports ("avx2") || !__builtin_cpu_supports ("fma"))
        return 1;
    if (!__builtin_cpu_supports ("avx512f") || !__builtin_cpu_supports ("avx512dq") ||
        !__builtin_cpu_supports ("avx512vl"))
        return 2;
#endif
    return kVersions.size ();
}

} // namespace

std::span<const BlockMath* const> blockMathVersions ()
{
    return std::span (kVersions).first (runnableCount ());
}

const BlockMath& blockMath ()
{
    static const BlockMath& chosen = *blockMathVersions ().back ();
    return chosen;
}

} // namespace tessaly
