// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/window.h"

int main(int argc, char *argv[])
{
    return runNamedTests(argc, argv);
}
