// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

// The application object lives while the tests run, as it does in the window: it sets the C
// library's locale from the environment. Each test program runs once more under a locale with a
// decimal comma.
int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    const char *wanted = std::getenv("EXPECTED_DECIMAL_POINT");
    if (wanted != nullptr && std::string(std::localeconv()->decimal_point) != wanted) {
        std::fprintf(stderr, "The locale of this run is not installed.\n");
        return 1;
    }
    return RUN_ALL_TESTS();
}
