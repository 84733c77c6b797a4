#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Converts every survey of samples/ with the batch command into build/samples/ and prints each file
# that was written. What is newer than its input and the command is left as it is.
set -eu
cd "$(dirname "$0")/.."
batch=$PWD/build/convert2velarix-batch
mkdir -p build/samples

# Whether neither the command nor anything of the input is newer than the output.
is_current() {
    [ -e "$1" ] && [ -z "$(find "$batch" "$2" -newer "$1")" ]
}

# convert OUTPUT INPUT ARGUMENT...
convert() {
    output=build/samples/$1
    input=$2
    shift 2
    if is_current "$output" "$input"; then
        return
    fi
    "$batch" "$@" -o "$output"
    echo "$output"
}

convert geogiga.otte samples/geogiga/line.txt geogiga samples/geogiga/line.txt
convert winsism.otte samples/winsism/line.xyz winsism samples/winsism/line.xyz
convert seisimager.otte samples/seisimager/line.vs seisimager samples/seisimager/line.vs
convert seisimager_several.otte samples/seisimager/several seisimager samples/seisimager/several/*.vs
convert generic.otte samples/generic generic --shots samples/generic/shots.txt

# Seismic records are converted beside their input, and Dolang listings in the working directory.
if ! is_current build/samples/seismic_unix/line.seg2 samples/seismic_unix; then
    cp -R samples/seismic_unix build/samples/
    (cd build/samples/seismic_unix && "$batch" su line.su)
    ls build/samples/seismic_unix/line_tmp build/samples/seismic_unix/line.seg2
fi
if ! is_current build/samples/dolang/LINE_RDT_dolang.seg2 samples/dolang; then
    cp -R samples/dolang build/samples/
    (cd build/samples/dolang && "$batch" dolang LINE.ADT)
    ls build/samples/dolang/tmp_?DT build/samples/dolang/*.seg2
fi
