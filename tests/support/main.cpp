// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

/// Runs the tests of one file alone, of which the filter given may still leave out some. Returns
/// false when there are none.
bool keepTestsOf(const std::string &file)
{
    std::string names;
    for (int i = 0; i < testing::UnitTest::GetInstance()->total_test_suite_count(); ++i) {
        const testing::TestSuite &suite = *testing::UnitTest::GetInstance()->GetTestSuite(i);
        for (int k = 0; k < suite.total_test_count(); ++k) {
            const testing::TestInfo &test = *suite.GetTestInfo(k);
            if (std::filesystem::path(test.file()).filename() == file)
                names += std::string(":") + suite.name() + '.' + test.name();
        }
    }
    std::string &filter = testing::GTEST_FLAG(filter);
    filter = names + filter.substr(std::min(filter.find('-'), filter.size()));
    return !names.empty();
}

} // namespace

// The application object lives while the tests run, as it does in the window: it sets the C
// library's locale from the environment. Each test program runs once more under a locale with a
// decimal comma. An argument names the file whose tests are to run, without its "_test.cpp".
int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    const char *wanted = std::getenv("EXPECTED_DECIMAL_POINT");
    if (wanted != nullptr && std::string(std::localeconv()->decimal_point) != wanted) {
        std::fprintf(stderr, "The locale of this run is not installed.\n");
        return 1;
    }
    if (argc > 1 && !keepTestsOf(std::string(argv[1]) + "_test.cpp")) {
        std::fprintf(stderr, "%s_test.cpp holds no test of this program.\n", argv[1]);
        return 1;
    }
    return RUN_ALL_TESTS();
}
