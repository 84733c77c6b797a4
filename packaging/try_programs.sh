#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Runs every installed program, on the installed samples: try_programs.sh USR, the folder that has
# bin/ and share/.
set -eu
bin=$1/bin
samples=$1/share/doc/convert2velarix/samples
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work"

# expect WHAT IS SHOULD_BE
expect() {
    [ "$2" = "$3" ] || { printf '%s: "%s", expected "%s"\n' "$1" "$2" "$3" >&2; exit 1; }
}

try_window() {
    status=0
    timeout 2 "$bin/convert2velarix" || status=$?
    expect "the window is open until it is ended: status" "$status" 124
}

try_batch() {
    expect version "$("$bin/convert2velarix-batch" --version)" "convert2velarix-batch 1.0.0"
    "$bin/convert2velarix-batch" seisimager "$samples/seisimager/line.vs" -o line.otte
    expect "shots of line.otte" "$(sed -n 7p line.otte)" "-5;27.5;57.5;87.5;120;"
    cp "$samples/seismic_unix/line.su" .
    "$bin/convert2velarix-batch" su line.su
    expect "beginning of line.seg2" "$(od -An -tx1 -N4 line.seg2)" " 55 3a 00 00"
}

try_field() {
    expect version "$("$bin/convert2velarix-field" --version)" "convert2velarix-field 1.0.0"
    "$bin/convert2velarix-field" convert "$samples/seisimager/line.vs" -o field.sgt
    expect "positions of field.sgt" "$(head -n 1 field.sgt)" "29 # shot/geophone points"
    "$bin/convert2velarix-field" check "$samples/sgt/line.sgt" --strict >/dev/null
}

try_view() {
    "$bin/convert2velarix-view" "$samples/sgt/line.sgt" -o line.png
    expect "beginning of line.png" "$(od -An -c -N4 line.png)" " 211   P   N   G"
    status=0
    XDG_CONFIG_HOME=$work/config timeout 2 "$bin/convert2velarix-view" "$samples/sgt/line.sgt" \
        2>messages || status=$?
    expect "the window of pictures is open until it is ended: status" "$status" 124
    expect "opened files that are remembered" \
        "$(grep -c line.sgt config/Convert2Velarix/convert2velarix-view.conf)" 1
}

for program in "$bin"/convert2velarix*; do
    case ${program##*/} in
        convert2velarix) try_window ;;
        convert2velarix-batch) try_batch ;;
        convert2velarix-field) try_field ;;
        convert2velarix-view) try_view ;;
        *) echo "$program: nothing tries it" >&2; exit 1 ;;
    esac
    echo "${program##*/} runs"
done
