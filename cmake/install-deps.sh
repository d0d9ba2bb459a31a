#!/usr/bin/env bash
# install-deps.sh [build] [bench] [desktop] [readers] [clang] [docs] [coverage]: installs what these groups need and the machine
# lacks, on Debian.
# Says nothing when nothing is missing.
set -euo pipefail

missing=()
need_command() { command -v "$1" >/dev/null 2>&1 || missing+=("$2"); }

# Headers are asked of the compiler, so that a copy outside the package system counts as well.
need_headers() {
    local compiler
    compiler=$(command -v "${CXX:-c++}" || command -v g++ || true)
    local header package
    while read -r header package; do
        if [ -z "$compiler" ]; then
            missing+=("$package")
        fi
        printf '#if !__has_include(<%s>)\n%s\n#endif\n' "$header" "$package"
    done >"$probe"
    if [ -n "$compiler" ]; then
        mapfile -t -O "${#missing[@]}" missing < <("$compiler" -std=c++20 -E -P -x c++ "$probe" | grep .)
    fi
}

check_build() {
    need_command cmake cmake
    need_command ninja ninja-build
    need_command "${CXX:-c++}" g++
    need_headers <<'HEADERS'
gtest/gtest.h libgtest-dev
benchmark/benchmark.h libbenchmark-dev
INIReader.h libinih-dev
CLI/CLI.hpp libcli11-dev
xlsxwriter.h libxlsxwriter-dev
HEADERS
}

need_file() {
    local package=$1 pattern
    shift
    for pattern in "$@"; do
        ! compgen -G "$pattern" >/dev/null || return 0
    done
    missing+=("$package")
}

# The window: Qt, and fonts that write its figures and its Chinese.
check_desktop() {
    need_file qt6-base-dev \
        "/usr/lib/*/cmake/Qt6Widgets/Qt6WidgetsConfig.cmake" "${Qt6_DIR:-/none}/Qt6Config.cmake"
    need_file fonts-dejavu-core "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
    need_file fonts-wqy-microhei \
        "/usr/share/fonts/truetype/wqy/*" "/usr/share/fonts/*/noto/NotoSansCJK*"
}

# What the benchmarks measure against beside what is built with.
check_bench() {
    need_headers <<<'qt6/QtCore/qsortfilterproxymodel.h qt6-base-dev'
}

# What the tests read workbooks back with, for Debian's own Python.
check_readers() {
    local module
    for module in openpyxl xlrd; do
        /usr/bin/python3 -c "import $module" >/dev/null 2>&1 || missing+=("python3-$module")
    done
}

check_clang() {
    need_command clang++-14 clang-14
    if ! ls "$(clang++-14 -print-resource-dir 2>/dev/null)"/lib/*/libclang_rt.asan* >/dev/null 2>&1; then
        missing+=(libclang-rt-14-dev)
    fi
}

# What describes the public headers.
check_docs() {
    need_command doxygen doxygen
    need_command python3 python3
}

probe=$(mktemp)
trap 'rm -f "$probe"' EXIT

[ $# -gt 0 ] || set -- build
for group in "$@"; do
    case "$group" in
        build) check_build ;;
        desktop) check_desktop ;;
        bench) check_bench ;;
        readers) check_readers ;;
        clang) check_clang ;;
        docs) check_docs ;;
        coverage) need_command gcovr gcovr ;;
        *)
            echo "install-deps.sh: no group is called $group" >&2
            exit 2
            ;;
    esac
done

[ ${#missing[@]} -gt 0 ] || exit 0

if ! command -v apt-get >/dev/null 2>&1; then
    echo "Missing: ${missing[*]} (Debian's names); there is no apt-get here, please install them." >&2
    exit 1
fi
asRoot=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null 2>&1; then
        echo "Missing: ${missing[*]}; installing them needs root or sudo." >&2
        exit 1
    fi
    asRoot=(sudo)
fi

echo "Installing ${missing[*]}" >&2
log=$probe
apt() { "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" >>"$log" 2>&1; }
: >"$log"
apt update || true # stale lists may still do; the installation tells
if ! apt install -y --no-install-recommends "${missing[@]}"; then
    cat "$log" >&2
    echo "Could not install: ${missing[*]}" >&2
    exit 1
fi
