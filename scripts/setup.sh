#!/bin/sh
# Sets a Debian 12 (or like) machine up and configures a build: installs the packages that are
# missing and makes build/<preset>. Sourced by the other scripts; on its own it does the same.
#
#   scripts/setup.sh [PRESET]      PRESET: release (default), dev, asan, tsan
set -eu

root=$(CDPATH='' cd -- "$(dirname -- "$0")/.." && pwd)
packages="g++ cmake ninja-build pkg-config libcli11-dev libfmt-dev nlohmann-json3-dev libgtest-dev libgmock-dev
          libbenchmark-dev libproj-dev proj-bin proj-data geographiclib-tools libxml2-utils python3"

say() { printf '%s\n' "== $*" >&2; }

# Runs a command as root, with sudo when this is somebody else.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -n "$@"
    else
        say "needs root or sudo: $*"
        return 1
    fi
}

install_packages() {
    missing=''
    for package in $packages; do
        state=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
        [ "$state" = 'install ok installed' ] || missing="$missing $package"
    done
    if [ -n "$missing" ]; then
        say "installing$missing"
        as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2
        # shellcheck disable=SC2086
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >&2
    fi
}

# configure PRESET: leaves the build folder's name in $build.
configure() {
    build="$root/build/$1"
    if [ ! -f "$build/build.ninja" ]; then
        say "configuring $1"
        (cd "$root" && cmake --preset "$1" >&2)
    fi
}

setup() {
    install_packages
    configure "$1"
}

case "$0" in
*/setup.sh | setup.sh) setup "${1:-release}" ;;
esac
