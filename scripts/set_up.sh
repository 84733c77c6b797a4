# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# For ./run, ./test and the other scripts, which read this file.
# shellcheck shell=sh

# Installs the Debian packages given that are missing. Without the right to
# install them, prints the one line to type and stops.
need_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This is not Debian or Ubuntu. Please install a C++20 compiler, CMake 3.25, Ninja and Qt 6.4" >&2
        echo "(Core, Gui, Widgets), for ./test also Qt Test, GoogleTest, Python 3 and the locale" >&2
        echo "de_DE.UTF-8; then build with: cmake --preset release && cmake --build --preset release" >&2
        exit 1
    fi
    missing=
    for package in "$@"; do
        state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || true
        [ "$state" = installed ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    as_root=
    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Packages are missing. Please type, as root:" >&2
            echo "apt-get update && apt-get install -y$missing" >&2
            exit 1
        fi
        as_root=sudo
    fi
    echo "Installing:$missing"
    # shellcheck disable=SC2086 # a name a word
    if ! { $as_root apt-get update -qq && $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends $missing >/dev/null; }; then
        echo "The packages could not be installed. Please type, as root:" >&2
        echo "apt-get update && apt-get install -y$missing" >&2
        exit 1
    fi
}

# Configures a preset into its folder, unless that was done here before: a folder that was moved,
# copied or left half done is configured anew. With options it is configured in any case.
configure() {
    if ! grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$2/CMakeCache.txt" ||
        ! [ -f "$2/build.ninja" ]; then
        rm -rf "$2/CMakeCache.txt" "$2/CMakeFiles"
    elif [ $# = 2 ]; then
        return
    fi
    configured_preset=$1
    shift 2
    cmake --preset "$configured_preset" "$@" >/dev/null
}
