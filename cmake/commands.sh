# What ./run, ./test, ./bench and .ci/run share; they source this file.

Root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
Jobs=$(nproc 2>/dev/null || echo 2)

# InstallMissing GROUP...
InstallMissing() { bash "$Root/cmake/install-deps.sh" "$@"; }

# Configure PRESET: only a tree that has no build files yet, or has looked for Qt before it came;
# otherwise the build does it itself.
Configure() {
    local folder=$Root/build/$1
    if [ -f "$folder/build.ninja" ] &&
        ! { grep -q '^Qt6_DIR:PATH=.*-NOTFOUND' "$folder/CMakeCache.txt" &&
            compgen -G "/usr/lib/*/cmake/Qt6/Qt6Config.cmake" >/dev/null; }; then
        return
    fi
    (cd "$Root" && cmake --preset "$1")
}

# Build PRESET [TARGET...]: with the build's own output.
Build() {
    local preset=$1
    shift
    Configure "$preset" || return
    (cd "$Root" && cmake --build --preset "$preset" --parallel "$Jobs" ${1:+--target "$@"})
}

# BuildQuietly PRESET [TARGET...]: output only when it fails, and one line of progress on a terminal.
BuildQuietly() {
    local log
    log=$(mktemp)
    Build "$@" >"$log" 2>&1 &
    local builder=$! result=0 ticks=0
    trap 'kill "$builder" 2>/dev/null; rm -f "$log"; exit 130' INT TERM
    if [ -t 2 ]; then
        while kill -0 "$builder" 2>/dev/null; do
            sleep 0.1
            ticks=$((ticks + 1))
            if [ $ticks -ge 10 ]; then
                printf '\rBuilding %s\033[K' "$(grep -o '^\[[0-9]*/[0-9]*\]' "$log" | tail -n 1)" >&2
            fi
        done
        [ $ticks -lt 10 ] || printf '\r\033[K' >&2
    fi
    wait "$builder" || result=$?
    trap - INT TERM
    [ "$result" -eq 0 ] || cat "$log" >&2
    rm -f "$log"
    return "$result"
}
