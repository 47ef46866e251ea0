#!/bin/bash
# fuzz/run.sh [SECONDS]: builds the fuzzers and runs each for that long (60), beginning with its
# corpus. Fails when one of them finds something; what it was given then is in build/fuzz/found.
# Inputs that go new ways gather in build/fuzz/corpus. After a long run, this adds to a corpus those of
# them that reach new code; small ones are worth keeping:
#   build/fuzz/fuzz/fuzz_line -merge=1 -use_counters=0 fuzz/corpus/line build/fuzz/corpus/line
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:-60}
build=build/fuzz

. tools/packages.sh
# The list is words on purpose.
# shellcheck disable=SC2086
install_missing $packages_fuzz

[ -f $build/build.ninja ] || cmake --preset fuzz
cmake --build --preset fuzz

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# Of what is allocated only the nearest callers are kept: it is half as fast again. The input that is
# kept, given to the fuzzer alone, tells all of them. For a long run, detect_stack_use_after_return=0
# buys a tenth more.
export ASAN_OPTIONS=${ASAN_OPTIONS-malloc_context_size=2:quarantine_size_mb=16:strict_string_checks=1:detect_stack_use_after_return=1}
mkdir -p $build/found
total=0
for corpus in fuzz/corpus/*/; do
    target=$(basename "$corpus")
    grown=$build/corpus/$target
    log=$build/$target.log
    mkdir -p "$grown"
    # New inputs go to the first folder. A second is long for any of them; a minute is a loop, even
    # where everything else goes first.
    if ! "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=600 -timeout=60 \
        -dict=fuzz/words.dict -artifact_prefix=$build/found/"$target"- "$grown" "$corpus" >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        echo "fuzz/run.sh: fuzz_$target found something" >&2
        exit 1
    fi
    runs=$(sed -n 's/^Done \([0-9]*\) runs.*/\1/p' "$log")
    printf '%-8s %10d executions\n' "$target" "$runs"
    total=$((total + runs))
done
printf '%-8s %10d executions\n' all "$total"
