#include "block_math.h"

namespace tessaly
{

extern const BlockMath blockMathPlain;
#ifdef TESSALY_WIDE_VECTORS
extern const BlockMath blockMathV3;
extern const BlockMath blockMathV4;
#endif

namespace
{

const BlockMath& widest ()
{
#ifdef TESSALY_WIDE_VECTORS
    __builtin_cpu_init ();
    if (__builtin_cpu_supports ("avx512f") && __builtin_cpu_supports ("avx512dq") &&
        __builtin_cpu_supports ("avx512vl"))
        return blockMathV4;
    if (__builtin_cpu_supports ("avx2"))
        return blockMathV3;
#endif
    return blockMathPlain;
}

} // namespace

const BlockMath& blockMath ()
{
    static const BlockMath& chosen = widest ();
    return chosen;
}

} // namespace tessaly
