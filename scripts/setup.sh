#!/bin/bash
# Installs what is missing of Debian's packages to build, run and test; done in a moment when nothing is.
#   scripts/setup.sh                 what ./run and ./test need
#   scripts/setup.sh --instructions  what ./run bench --instructions counts with as well
#   scripts/setup.sh --peers         the programs that ./run bench --peers compares with as well; it skips missing ones
#   scripts/setup.sh --develop       what --instructions installs, the formatter and the linter as well
set -euo pipefail
PATH=/usr/sbin:/usr/bin:/sbin:/bin:$PATH

packages=(
    g++ cmake ninja-build ccache pkgconf
    qt6-base-dev qt6-5compat-dev qt6-declarative-dev qt6-svg-dev libimath-dev libmuparser-dev zlib1g-dev
    libharfbuzz-dev libfontconfig-dev fonts-dejavu-core lib2geom-dev libboost-dev
    libpng-dev libopenexr-dev libopencolorio-dev libopenimageio-dev ffmpeg
    python3 python3-dev
    libgtest-dev libgmock-dev libbenchmark-dev python3-pytest python3-hypothesis python3-mypy python3-numpy
)
case "${1:-}" in
    "") ;;
    --instructions) packages+=(valgrind) ;;
    --peers) packages+=(librsvg2-bin python3-cairo synfig inkscape blender freecad-python3 python3-pyqt6) ;;
    --develop) packages+=(valgrind clang-format clang-tidy git) ;;
    *) echo "usage: scripts/setup.sh [--instructions | --peers | --develop]" >&2; exit 2 ;;
esac

command -v dpkg-query >/dev/null || {
    echo "setup: this machine has no Debian packages; install by hand: ${packages[*]}" >&2
    exit 1
}
# dpkg-query fails when it doesn't know one of them; what it does know is the answer.
known=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null || true)
missing=()
for package in "${packages[@]}"; do
    grep -qxF "installed $package" <<<"$known" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || {
        echo "setup: not root and no sudo; as root, run: apt-get install ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
step() {
    echo "setup: $1" >&2
    shift
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive "$@" >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        echo "setup: failed: $*" >&2
        exit 1
    }
}
step "reading the package lists" apt-get update -q
step "installing ${missing[*]} (some minutes on a bare machine)" \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
echo "setup: done" >&2
