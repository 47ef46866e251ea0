#!/bin/bash
# Builds the benchmarks, runs them all and prints a table of figures. See README.md.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/packages.sh
# The list is words on purpose.
# shellcheck disable=SC2086
install_missing $packages_bench
native=$PWD/build/bench
windows=$PWD/build/windows

for preset in bench windows; do
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" | tail -n 1
done

results=$(mktemp)
trap 'rm -f "$results"' EXIT

# Runs a benchmark; what it says goes to the screen and its figures to the table.
run() {
    echo "== $1"
    shift
    "$@" | tr -d '\r' | tee -a "$results" | grep -v '^='
}

cd "$native/bench"
run "reading" ./read_bench ./read_menu .
run "rules" ./rules_bench 2>/dev/null

# Without the heap checker, which the tests have; with the services running.
tools=$OLDPWD/tools
wine=$windows/wine-bench
"$tools/wine-up" "$wine" picture
. "$wine/env"
cd "$windows/bench"
program=$windows/program/NVMenu.exe
run "start" wine start_bench.exe "Z:${program//\//\\}"
"$tools/wine-up" "$wine" picture
run "launch" wine launch_bench.exe
"$tools/wine-up" "$wine" picture
run "column" wine column_bench.exe
"$tools/wine-up" "$wine" picture
run "editing" wine edit_bench.exe

echo
echo "NVMenu.exe: $(stat -c %s "$program") bytes, needs" \
    "$(x86_64-w64-mingw32-objdump -p "$program" | awk '/DLL Name/ { print $3 }' | sort | xargs)"
printf '=\tsize of NVMenu.exe\t%s\t1000000 bytes\t%s\n' "$(stat -c '%s bytes' "$program")" \
    "$([ "$(stat -c %s "$program")" -lt 1000000 ] && echo yes || echo NO)" >>"$results"
echo
printf '%-62s %16s %16s  %s\n' figure measured "at most" met
grep '^=' "$results" | while IFS=$'\t' read -r _ figure measured aim met; do
    printf '%-62s %16s %16s  %s\n' "$figure" "$measured" "$aim" "$met"
done
