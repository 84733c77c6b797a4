#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Makes the pictures of docs/pictures.md from samples/:
#     docs/make_pictures.sh [PROGRAM [FOLDER]]      otherwise with build/convert2velarix-view in docs/
set -eu
cd "$(dirname "$0")/.."
. scripts/set_up.sh
need_packages python3
view=${1:-build/convert2velarix-view}
[ -x "$view" ] || { echo "Please build first: ./run" >&2; exit 1; }
pictures=${2:-docs}
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT

"$view" samples/sgt/line.sgt -o "$pictures/traveltimes.png" --size 1000x640
"$view" samples/seismic_unix/line.su samples/sgt/line.sgt -o "$pictures/record.png" --size 1000x640

# The ground of the samples once more, with shots at 60 and 100 m, where receivers are, and two times
# that are 30 ms late: from 27.5 to 75 m, and from 60 to 100 m.
python3 - "$folder/line_with_mistakes.csv" <<'END'
import math
import sys

def arrival(offset):
    upper, lower, thickness = 500.0, 1800.0, 6.0
    intercept = 2 * thickness * math.sqrt(lower**2 - upper**2) / (upper * lower)
    return min(offset / upper, offset / lower + intercept)

with open(sys.argv[1], "w") as table:
    table.write("shot_x,shot_elevation,receiver_x,receiver_elevation,time\n")
    for shot in (-5.0, 27.5, 60.0, 100.0):
        for receiver in range(0, 120, 5):
            time = round(arrival(abs(receiver - shot)), 4)
            if (shot, receiver) in ((27.5, 75), (60.0, 100)):
                time += 0.03
            table.write(f"{shot},0,{receiver},0,{time:.4f}\n")
END
"$view" "$folder/line_with_mistakes.csv" -o "$pictures/findings.png" --size 1000x640
ls "$pictures/traveltimes.png" "$pictures/record.png" "$pictures/findings.png"
