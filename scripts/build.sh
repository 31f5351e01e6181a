#!/bin/bash
# Configures a preset when it is new and builds targets of it, with one line of progress.
#   scripts/build.sh <preset> [target...]
set -euo pipefail
PATH=/usr/sbin:/usr/bin:/sbin:/bin:$PATH
root=$(cd "$(dirname "$0")/.." && pwd)
preset=$1
shift
build=$root/build/$preset
mkdir -p "$build"
exec 9>"$build/.lock"
flock 9

if [ ! -f "$build/build.ninja" ]; then
    echo "build: configuring build/$preset" >&2
    (cd "$root" && cmake --preset "$preset") >"$build/configure.log" 2>&1 || {
        cat "$build/configure.log" >&2
        exit 1
    }
fi

if [ -t 2 ]; then
    NINJA_STATUS="build: [%f/%t] " ninja -C "$build" "$@" >&2
else
    NINJA_STATUS="[%p] " ninja -C "$build" "$@" 9>&- | /usr/bin/python3 "$root/scripts/progress.py" build >&2
fi
