#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Takes the pictures of the windows for the README and the guide: docs/window*.png of the converter,
# docs/view_window.png of convert2velarix-view. A folder with a test build may be given; otherwise
# build-test is built.
set -eu
cd "$(dirname "$0")/.."
. scripts/set_up.sh
need_packages g++ cmake ninja-build qt6-base-dev libqcustomplot-dev qt6-svg-dev libgtest-dev \
    fonts-dejavu-core xvfb xauth xdotool imagemagick

build=${1:-build-test}
[ $# = 1 ] || configure test build-test
cmake --build "$build" --target window_pictures convert2velarix-view -- --quiet

# The pictures show this name, and when the files were made.
home=/tmp/survey
mkdir "$home"
trap 'rm -r "$home"' EXIT
cp samples/seisimager/line.vs samples/generic/shot1.txt "$home"
touch -d 2026-11-20T12:00Z "$home"/*
export HOME="$home" LC_ALL=C.UTF-8 TZ=UTC XDG_RUNTIME_DIR="$home"
QT_QPA_PLATFORM=offscreen "$build/tests/window_pictures" docs

# The guide's own example.
sed -n '/^\$ cat > doubtful\.vs /,/^> END$/s/^> //p' docs/guide.md | sed '$d' >"$home/doubtful.vs"
# shellcheck disable=SC2016 # for the shell inside
xvfb-run -a -s '-screen 0 1000x700x24' sh -c '
    "$1" "$HOME/doubtful.vs" &
    program=$!
    window=$(xdotool search --sync --onlyvisible --name "pictures$" | head -n 1)
    xdotool windowmove "$window" 0 0 windowsize "$window" 1000 700
    sleep 2
    import -window "$window" -strip docs/view_window.png
    kill "$program"' sh "$build/convert2velarix-view"
ls docs/window*.png docs/view_window.png
