#pragma once

/// Ahead of a function of plain loops: it is compiled for AVX2 and AVX-512, too, and the program takes at its start what
/// the processor runs. The results are the same bit for bit: order of operations and rounding are those of the source.
/// Empty where the loader can't choose (Windows, other C libraries), and under sanitizers, which begin after the choice.
#if defined(__x86_64__) && defined(__gnu_linux__) && defined(__GNUC__) && !defined(__clang__) &&                       \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define TESSALY_SIMD_CLONES [[gnu::target_clones ("arch=x86-64-v4", "arch=x86-64-v3", "default")]]
#else
#define TESSALY_SIMD_CLONES
#endif
