#!/bin/bash
# Checks, builds and tests everything on Debian 12, installing what is missing. See README.md.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
. tools/packages.sh

step='getting ready'
fuzzing=
at_end() {
    local status=$?
    [ -z "$fuzzing" ] || kill -- "-$fuzzing" 2>/dev/null || true
    tools/wine-down build/windows/wine >/dev/null 2>&1 || true
    [ $status -eq 0 ] || echo "test.sh: FAILED at: $step" >&2
    exit $status
}
trap at_end EXIT
begin() {
    step=$1
    echo "=== $step"
}

# build PRESET: configures only once; Ninja does it again when a CMake file has changed.
build() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1"
    cmake --build --preset "$1"
}

begin 'Packages'
# The list is words on purpose.
# shellcheck disable=SC2086
install_missing $packages_test

begin 'Layout of the code (clang-format)'
mapfile -t code < <(find src tests bench fuzz \( -name '*.h' -o -name '*.cpp' \) 2>/dev/null)
clang-format-14 --dry-run -Werror "${code[@]}"

begin 'The program for Windows'
build windows

begin 'The rules, with sanitizers'
build native
ctest --preset native

# A minute of each fuzzer, beside what follows: the tests under Wine wait more than they work.
begin 'The fuzzers'
build fuzz
# A process group of its own, to be ended as a whole; not a setsid of its own, for which Linux sets
# aside an equal share of the processor, so that nice counts only within it.
set -m
nice -n 19 fuzz/run.sh 60 >build/fuzz/run.log 2>&1 </dev/null &
fuzzing=$!
set +m

begin 'The rules and the windows, under Wine'
ctest --preset windows

begin 'The program for 32-bit Windows (it can only be compiled and linked here)'
build windows32
begin 'What no compiler checks (tools/lint.sh)'
tools/lint.sh

begin 'A robot that uses the program at random'
tools/robot 60

begin 'The rules, with inputs that nobody thought of'
status=0
wait "$fuzzing" || status=$?
fuzzing=
cat build/fuzz/run.log
exit $status
