#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT
#
# Completes command lines of the commands and compares what bash is offered.
#     completions_test.bash COMPLETIONS_FOLDER CONVERT2VELARIX_FIELD
set -euo pipefail

folder=$1
field=$2
failures=0

# shellcheck source=/dev/null
for command in convert2velarix-batch convert2velarix-field convert2velarix-view; do
    source "$folder/$command"
done

# expect OFFERED WORD...: the last word is the one to complete.
expect()
{
    local offered=$1
    shift
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    "$(complete -p "$1" | sed 's/.* -F \([^ ]*\) .*/\1/')"
    if [[ ${COMPREPLY[*]} != "$offered" ]]; then
        echo "\"$*\": offered \"${COMPREPLY[*]}\", expected \"$offered\""
        failures=$((failures + 1))
    fi
}

# Where nothing is offered, bash offers files.
for command in convert2velarix-batch convert2velarix-field convert2velarix-view; do
    case $(complete -p "$command") in
        'complete -o default -F '*" $command") ;;
        *) echo "$command: files are not offered" && failures=$((failures + 1)) ;;
    esac
done

field_formats='generic geogiga seisimager winsism otte sgt csv su seg2 dolang'
convert_options='--output --to --from --times-in --shots --topography --byte-order --millivolts --strict'

expect 'info check convert formats --help --version' convert2velarix-field ''
expect 'check convert' convert2velarix-field c
expect 'check' convert2velarix-field ch
expect '--help --version' convert2velarix-field --
expect '' convert2velarix-field a.vs
expect '' convert2velarix-field info ''
expect '' convert2velarix-field convert a.v
expect '--json --from --times-in --shots' convert2velarix-field info -
expect '--json --strict --tolerance --from --times-in --shots' convert2velarix-field check a.vs -
expect "$convert_options" convert2velarix-field convert a.vs -o a.otte --
expect "$convert_options" convert2velarix-field --strict convert --
expect '' convert2velarix-field formats -
expect '--times-in' convert2velarix-field check --ti
expect '--to --topography' convert2velarix-field convert --to
expect "$field_formats" convert2velarix-field info --from ''
expect 'seisimager sgt su seg2' convert2velarix-field check a --from s
expect 'otte sgt seisimager csv su seg2' convert2velarix-field convert --to ''
expect 'otte' convert2velarix-field convert --to o
expect 'otte sgt seisimager csv su seg2' convert2velarix-field convert --to =
expect 'csv' convert2velarix-field convert --to = c
expect 's ms' convert2velarix-field info --times-in ''
expect 'little big' convert2velarix-field convert --byte-order ''
expect 'big' convert2velarix-field convert --byte-order = b
for option in -o --output --shots --topography --tolerance; do
    expect '' convert2velarix-field convert "$option" ''
    expect '' convert2velarix-field convert "$option" i
done

expect 'geogiga winsism seisimager generic su dolang --help --version' convert2velarix-batch ''
expect 'geogiga generic' convert2velarix-batch g
expect 'seisimager su' convert2velarix-batch s
expect '' convert2velarix-batch seisimager ''
expect '' convert2velarix-batch seisimager a.v
for format in geogiga winsism seisimager; do
    expect '--output --strict' convert2velarix-batch "$format" -
done
expect '--output --shot --shots --strict' convert2velarix-batch generic a.txt -
expect '--shot --shots' convert2velarix-batch generic --sh
expect '--echo --strict' convert2velarix-batch su a.su -
expect '--echo --strict' convert2velarix-batch dolang -
for option in -o --output --shot --shots =; do
    expect '' convert2velarix-batch generic "$option" ''
done

expect '' convert2velarix-view ''
expect '' convert2velarix-view a.v
expect '--output --size --from --times-in --shots --topography --help --version' \
    convert2velarix-view a.vs -
expect '--size --shots' convert2velarix-view --s
expect "$field_formats" convert2velarix-view a.vs --from ''
expect 'csv' convert2velarix-view --from = c
expect 's ms' convert2velarix-view --times-in ''
for option in -o --output --shots --topography; do
    expect '' convert2velarix-view "$option" i
done

# What is offered is what the command knows.
[[ $("$field" formats | awk 'NR > 1 { print $1 }' | sort) \
    == $(tr ' ' '\n' <<<"$field_formats" | sort) ]] || {
    echo "the formats of the command differ: $("$field" formats)"
    failures=$((failures + 1))
}

exit "$((failures != 0))"
