// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/clear_vector_registers.h"

#if defined(__x86_64__) && defined(__GNUC__)

#include <immintrin.h>

namespace {

__attribute__((target("avx"), noinline)) void clearUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void clearVectorRegisters()
{
    if (__builtin_cpu_supports("avx"))
        clearUpperHalves();
}

#else

void clearVectorRegisters() { }

#endif
