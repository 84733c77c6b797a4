#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Runs the tests that ./test --coverage built and prints how much of each file ran, by lines and by
# branches. Fails when fewer than 97 of 100 lines did where files are read and written.
set -eu
cd "$(dirname "$0")/.."
. scripts/set_up.sh
need_packages gcovr

find build-coverage -name '*.gcda' -delete
# A limit to the size of files is one to those that hold the counts, too.
GTEST_FILTER='-*MayNotGrow*' ctest --preset coverage --no-tests=error "$@"

counts=build-coverage/counts.json
gcovr --exclude-unreachable-branches --exclude-throw-branches --json $counts \
    -f app/ -f batch/ -f console/ -f field/ -f readers/ -f seg2/ -f traveltime/ -f view/ \
    build-coverage
gcovr -a $counts
gcovr -a $counts --branches
echo "traveltime/, readers/ and seg2/ together:"
# Never to a device: gcovr removes what stands under an output's name before it writes.
gcovr -a $counts -f traveltime/ -f readers/ -f seg2/ \
    --print-summary --fail-under-line 97 --output build-coverage/together.txt
