#!/usr/bin/env bash
# build.sh <folder> [cmake options...]: configures and builds the whole tree
# into <folder> under the checkout, warnings as errors.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
dir=$1
shift
launcher=()
command -v ccache >/dev/null 2>&1 && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S "$top" -B "$top/$dir" -G Ninja -DCALVANE_WERROR=ON "${launcher[@]}" "$@" >/dev/null
cmake --build "$top/$dir"
