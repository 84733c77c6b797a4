// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

// The traces of a large file fill hundreds of megabytes, which the system clears page by page
// before it gives them: longer work than all else in a conversion. Huge pages are cleared in a
// third of the time. Without glibc, or where the system has no huge pages, nothing of this does
// anything.

/// Called before each trace takes its memory: asks for huge pages for all that the heap has grown
/// by since the last call, and has it grow by 16 MB at once, for long traces too.
void useHugePages();

/// To be called when the traces are gone: has the heap grow by 128 KB again, and gives all that is
/// free in it back to the system.
void giveMemoryBack();
