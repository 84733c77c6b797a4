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

void useHugePages()
{
#ifdef __GLIBC__
    // Long traces come from the heap too, and the heap grows by many huge pages at once.
    static const bool isSet =
        mallopt(M_MMAP_THRESHOLD, 32 << 20) == 1 && mallopt(M_TOP_PAD, 64 << 20) == 1;
    static char *lastEnd = static_cast<char *>(sbrk(0));
    char *const end = static_cast<char *>(sbrk(0));
    if (isSet && end > lastEnd)
        madvise(lastEnd, static_cast<std::size_t>(end - lastEnd), MADV_HUGEPAGE);
    lastEnd = end;
#endif
}
