#!/bin/sh
# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Installs the packages of a folder in a new, smallest Debian 12, runs the programs there as a user,
# removes them, and compares all files with those before. DEBIAN_MIRROR names another mirror.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
cd "$here/.."
. scripts/set_up.sh
need_packages debootstrap
[ "$(id -u)" = 0 ] || { echo "Please type: sudo ./package --check" >&2; exit 1; }

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
chmod 755 "$root"
log=$root/log
# Shows what a command prints only if it fails.
quietly() {
    "$@" >"$log" 2>&1 || { tail "$log" >&2; exit 1; }
}
inside() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        chroot "$root" "$@"
}
in_apt() {
    quietly inside apt-get -y --no-install-recommends -o Dpkg::Use-Pty=0 "$@"
}

# All files with their sizes, but for what packages are installed with.
list_files() {
    inside find / -xdev \
        -regex '/\(log\|packages\|proc\|sys\|var/\(cache/apt\|lib/apt\|lib/dpkg\|log\)\)' -prune \
        -o -type d -printf '%p\n' -o -printf '%p %s\n' | sort
}

echo "Making a clean Debian 12..."
quietly debootstrap --variant=minbase bookworm "$root" \
    "${DEBIAN_MIRROR:-http://deb.debian.org/debian}"
mkdir "$root/packages"
cp "$1"/*.deb "$here/try_programs.sh" "$root/packages"
inside useradd --create-home crew

echo "Installing what the packages depend on..."
for package in "$1"/*.deb; do
    in_apt satisfy "$(dpkg-deb -f "$package" Depends)"
done
list_files >"$root/packages/before"

echo "Installing the packages..."
for package in "$1"/*.deb; do
    in_apt install "/packages/${package##*/}"
done
inside su crew -c "/packages/try_programs.sh /usr"

echo "Removing them..."
for package in "$1"/*.deb; do
    in_apt purge "$(dpkg-deb -f "$package" Package)"
done
list_files >"$root/packages/after"
if ! diff "$root/packages/before" "$root/packages/after"; then
    echo "These files are left, missing or changed." >&2
    exit 1
fi
echo "Nothing is left: $(wc -l <"$root/packages/after") files and folders as before."
