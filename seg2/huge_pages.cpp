// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/huge_pages.h"

#include <cstdlib>
#ifdef __GLIBC__
#include <cstddef>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

#if defined(__GLIBC__) && defined(MADV_HUGEPAGE)

namespace {

bool growsInSteps = false;
char *knownEnd = nullptr; // of the heap

/// Bytes that the heap grows by at least, and from which on memory is not taken from it; false when
/// the C library has no such setting.
bool setHeap(int step, int mappedFrom)
{
    return mallopt(M_MMAP_THRESHOLD, mappedFrom) == 1 && mallopt(M_TOP_PAD, step) == 1;
}

} // namespace

void useHugePages()
{
    char *const end = static_cast<char *>(sbrk(0));
    if (!growsInSteps)
        growsInSteps = setHeap(16 << 20, 32 << 20);
    else if (end > knownEnd)
        madvise(knownEnd, static_cast<std::size_t>(end - knownEnd), MADV_HUGEPAGE);
    knownEnd = end;
}

void giveMemoryBack()
{
    setHeap(128 << 10, 128 << 10);
    growsInSteps = false;
    malloc_trim(0);
}

#else

void useHugePages() { }
void giveMemoryBack() { }

#endif
