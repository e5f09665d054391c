#!/usr/bin/env bash
# Tries made-up inputs on the fuzz targets for PLYWELD_FUZZ_SECONDS in all; the last lines count.
# What breaks a target is left in build/fuzz/found, and repeats with build/fuzz/TARGET FILE.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
. "$top/scripts/setup.sh"

seconds=$((${PLYWELD_FUZZ_SECONDS:-600} / 4))
home="${PLYWELD_FUZZ_BUILD:-$build/fuzz}"
corpus="${PLYWELD_CORPUS:-$top/../shared/corpus}"
suite="${PLYWELD_SUITE:-$top/../shared/musicxml-suite}"
passed=0
failed=0
tried=0

[ -n "${PLYWELD_FUZZ_BUILD:-}" ] || build_preset fuzz fuzz_musicxml fuzz_frames fuzz_settings
mkdir -p "$home/found"

# Scores at hand, by the ending of their names: seeds FOLDER ENDING...
seeds() {
    local folder=$1 ending
    shift
    mkdir -p "$folder"
    for ending in "$@"; do
        find "$top/examples" "$corpus" "$suite" -name "*.$ending" -size -64k -exec cp -n {} "$folder" \; \
            2>/dev/null || true
    done
}

# try NAME TARGET OPTION...
try() {
    local name=$1 target=$2 log="$home/$1.log" inputs status=0
    shift 2
    mkdir -p "$home/corpus/$name"
    ASAN_OPTIONS=allocator_may_return_null=1 "$home/$target" "$home/corpus/$name" \
        -max_total_time="$seconds" -print_final_stats=1 -timeout=20 -rss_limit_mb=4096 \
        -artifact_prefix="$home/found/$name-" "$@" >"$log" 2>&1 || status=$?
    inputs=$(sed -nE 's/^stat::number_of_executed_units: *([0-9]+)/\1/p' "$log")
    tried=$((tried + ${inputs:-0}))
    if [ "$status" -eq 0 ] && [ "${inputs:-0}" -gt 0 ]; then
        say "$name: $inputs inputs, nothing found"
        passed=$((passed + 1))
    else
        tail -n 20 "$log" >&2
        say "$name: FAILED after ${inputs:-0} inputs, see $home/found"
        failed=$((failed + 1))
    fi
}

seeds "$home/corpus/musicxml" xml musicxml
seeds "$home/corpus/mxl" mxl
try musicxml fuzz_musicxml -max_len=65536
try mxl fuzz_musicxml -max_len=65536
try frames fuzz_frames -max_len=2048
try settings fuzz_settings -max_len=2048
say "$tried inputs tried"
say "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
