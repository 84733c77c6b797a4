// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

/// Clears the upper halves of the processor's vector registers. Qt's hash of a string leaves them
/// in use, and from then on floating-point code that is built for every x86-64 machine waits for
/// results that it does not need. On other machines it does nothing.
void clearVectorRegisters();
