#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Takes the README's picture: the built window on a virtual display.
set -eu
cd "$(dirname "$0")/.."
. scripts/set_up.sh
need_packages xvfb xauth xdotool imagemagick
[ -x build/convert2velarix ] || { echo "Please build first: ./run" >&2; exit 1; }

# shellcheck disable=SC2016 # the inner shell expands them
xvfb-run -a -s "-screen 0 1024x768x24" sh -ec '
    build/convert2velarix &
    window=$(timeout 30 xdotool search --sync --onlyvisible --name "^Convert2Velarix v. 1.0$" | head -n 1)
    sleep 1
    import -window "$window" docs/window.png
    kill $!'
echo docs/window.png
