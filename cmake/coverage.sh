#!/usr/bin/env bash
# coverage.sh: runs the tests as a build counts them and lists the lines of viewdata/ that none of
# them executes, file by file, with the part of all lines at the end. Installs gcovr where it is
# missing. Takes about as long as ./test from nothing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/commands.sh"
cd "$Root"

InstallMissing build coverage
Build coverage
find build/coverage -name '*.gcda' -delete
# A test that fails has executed its lines all the same, and ./test tells of it.
ctest --preset coverage --parallel "$Jobs" --output-log build/coverage/tests.log >/dev/null || true
gcovr --root . --object-directory build/coverage --filter 'viewdata/' --gcov-ignore-parse-errors \
    --output build/coverage/viewdata.txt "$@"
cat build/coverage/viewdata.txt
