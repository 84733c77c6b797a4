#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Checks the packages in a folder: with the tools that know the rules for each kind of file, and by
# running the programs from where the packages are unpacked.
set -eu
here=$(dirname "$0")
packages=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
usr=$scratch/usr

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}

lintian --allow-root --fail-on error,warning "$packages"/*.deb &
lintian=$!
for package in "$packages"/*.deb; do
    dpkg-deb -x "$package" "$scratch"
    changes=$usr/share/doc/$(dpkg-deb -f "$package" Package)/changelog.Debian.gz
    version=$(zcat "$changes" | dpkg-parsechangelog -l - -S Version)
    [ "$version" = "$(dpkg-deb -f "$package" Version)" ] ||
        fail "$package: packaging/changelog.Debian begins with version $version"
done
release=${version%-*}
documents=$usr/share/doc/convert2velarix
for file in "$usr"/share/metainfo/*.xml "$documents/CITATION.cff"; do
    grep -q "version[=:] *\"*$release" "$file" || fail "$file: version $release is not there"
done

desktop-file-validate "$usr"/share/applications/*.desktop
appstreamcli validate --no-net "$usr"/share/metainfo/*.xml >"$scratch/appstream" 2>&1 ||
    fail "$(cat "$scratch/appstream")"
for entry in "$usr"/share/applications/*.desktop; do
    icon=$(sed -n 's/^Icon=//p' "$entry")
    for size in 16x16 22x22 24x24 32x32 48x48 64x64 128x128 256x256 scalable; do
        ls "$usr/share/icons/hicolor/$size/apps/$icon".* >/dev/null
    done
done

for program in "$usr"/bin/*; do
    page=$usr/share/man/man1/${program##*/}.1.gz
    warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" \
        2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$page:" "$warnings"
    zgrep -q "^\.TH.*Convert2Velarix $release\"" "$page" || fail "$page: not of version $release"
    for file in $(zgrep -o '/usr/share/[^ ]*' "$page"); do
        [ -e "$scratch$file" ] || fail "$page: $file is not there"
    done
done

# Sorts the options that a text names.
options_in() {
    grep -oE -- '(^|[^[:alnum:]-])--?[a-z][a-z-]*' | tr -cd 'a-z\n-' | sort -u
}

# The man page and the completion of a command have its options and no others.
for program in "$usr"/bin/convert2velarix-*; do
    command=${program##*/}
    "$program" --help | options_in >"$scratch/options"
    zcat "$usr/share/man/man1/$command.1.gz" | sed 's/\\-/-/g; s/\\f[A-Z]//g' | options_in |
        diff "$scratch/options" - >&2 || fail "$command: its man page (>) has other options"
    grep '^--' "$scratch/options" >"$scratch/long_options"
    options_in <"$usr/share/bash-completion/completions/$command" | grep '^--' |
        diff "$scratch/long_options" - >&2 || fail "$command: bash (>) completes other options"
done

find "$documents" -name '*.sh' -o -name '*.py' >"$scratch/scripts"
[ ! -s "$scratch/scripts" ] || fail "These run in the sources alone:" "$(cat "$scratch/scripts")"
find "$documents" -name '*.md' | while read -r page; do
    grep -oE '\]\([^)#:]+(#[^)]*)?\)' "$page" | sed 's/^](//; s/[#)].*//' | while read -r link; do
        [ -e "$(dirname "$page")/$link" ] || echo "$page: $link is not there"
    done
done >"$scratch/dead_links"
[ ! -s "$scratch/dead_links" ] || fail "$(cat "$scratch/dead_links")"

# expect_type TYPE FILE: what a desktop takes the file for.
expect_type() {
    type=$(XDG_DATA_HOME=$scratch XDG_DATA_DIRS=$usr/share:/usr/share \
        gio info -a standard::content-type "$2" | sed -n 's/ *standard::content-type: //p')
    [ "$type" = "$1" ] || fail "$2: a desktop takes it for $type, not for $1"
    grep -q "^MimeType=.*$1;" "$usr/share/applications/convert2velarix-view.desktop" ||
        fail "$1: no double click opens it"
}

if [ -e "$usr/share/mime/packages/convert2velarix.xml" ]; then
    XDG_DATA_DIRS=$usr/share update-mime-database "$usr/share/mime"
    samples=$documents/samples
    expect_type text/x-seisimager-traveltimes "$samples/seisimager/line.vs"
    expect_type text/x-unified-traveltimes "$samples/sgt/line.sgt"
    expect_type application/x-seismic-unix "$samples/seismic_unix/line.su"
    printf 'otte\n1.0\n2\n0\n' >"$scratch/line.otte"
    expect_type text/x-otte "$scratch/line.otte"
    cp "$scratch/line.otte" "$scratch/known_by_content"
    expect_type text/x-otte "$scratch/known_by_content"
    cp "$samples/sgt/line.sgt" "$scratch/known_by_content"
    expect_type text/x-unified-traveltimes "$scratch/known_by_content"
    for revision in '\125\72\0\0' '\125\72\1\0' '\72\125\0\0' '\72\125\0\1'; do
        # shellcheck disable=SC2059 # bytes by their numbers
        printf "$revision" | tee "$scratch/line.seg2" "$scratch/line.sg2" >"$scratch/line.dat"
        expect_type application/x-seg2 "$scratch/line.seg2"
        expect_type application/x-seg2 "$scratch/line.sg2"
        expect_type application/x-seg2 "$scratch/line.dat"
    done
fi

"$here/try_programs.sh" "$usr"
wait "$lintian" || fail "lintian is not content"
