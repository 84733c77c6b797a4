#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Takes the pictures of the converter's windows for the README and the guide: docs/window*.png.
# A folder with a test build may be given; otherwise build-test is built.
set -eu
cd "$(dirname "$0")/.."
. scripts/set_up.sh
need_packages g++ cmake ninja-build qt6-base-dev libgtest-dev fonts-dejavu-core

build=${1:-build-test}
[ $# = 1 ] || configure test build-test
cmake --build "$build" --target window_pictures -- --quiet

# The pictures show this name.
home=/tmp/survey
mkdir "$home"
trap 'rm -r "$home"' EXIT
cp samples/seisimager/line.vs samples/generic/shot1.txt "$home"
HOME=$home LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen "$build/tests/window_pictures" docs
ls docs/window*.png
