#!/bin/sh
# Sets up, builds everything and runs every test.
#
#   scripts/test.sh [PRESET] [CTEST ARGUMENTS...]      PRESET: release (default), dev, asan, tsan
set -eu

. "$(dirname -- "$0")/setup.sh"
preset=${1:-release}
[ $# -eq 0 ] || shift
setup "$preset"
say 'building'
cmake --build "$build" >&2
say 'testing'
cd "$build"
exec ctest --output-on-failure --no-tests=error -j "$(nproc)" "$@"
