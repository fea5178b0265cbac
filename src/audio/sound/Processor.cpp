#include "audio/sound/Processor.h"

// Compilers have it built in, but for Microsoft's, where it is put together of the bits that the manual of the
// processors names (Intel 64 and IA-32 Architectures Software Developer's Manual, volume 1, chapter 14.7.1).
#if defined(__x86_64__)

bool processorHasAvx2()
{
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
}

#elif defined(_M_X64)

#include <array>
#include <immintrin.h>
#include <intrin.h>

namespace {

struct CpuId
{
    explicit CpuId(int leaf) { __cpuidex(registers.data(), leaf, 0); }
    bool hasEbx(int bit) const { return (registers[1] >> bit & 1) != 0; }
    bool hasEcx(int bit) const { return (registers[2] >> bit & 1) != 0; }

    std::array<int, 4> registers{}; // eax, ebx, ecx, edx
};

} // namespace

bool processorHasAvx2()
{
    constexpr int fma = 12, osxsave = 27, avx2 = 5, featureLeaf = 7;
    constexpr unsigned long long vectorRegisters = 6; // those of SSE and AVX
    if (CpuId(0).registers[0] < featureLeaf)
        return false;
    const CpuId basic(1);
    return basic.hasEcx(fma) && basic.hasEcx(osxsave) && (_xgetbv(0) & vectorRegisters) == vectorRegisters &&
           CpuId(featureLeaf).hasEbx(avx2);
}

#else

bool processorHasAvx2()
{
    return false;
}

#endif
