#!/usr/bin/env bash
# Breaks the plug-in on purpose and expects that a test fails.
#   mutations.sh           each patch in tests/mutations, which breaks the merge in one way
#   mutations.sh N [SEED]  N random one-token faults in merge/ and Class Files/, by mutate.py
# Works on copies of the project in build/mutations, one per processor; the last lines count. A
# random fault that changes nothing a caller could see is listed in tests/mutations/equal.txt,
# with the reason, and counts as neither.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
. "$top/scripts/setup.sh"

project=$top
home="$build/mutations"
patches="$project/tests/mutations"
# Groups that are built together, the quick ones first: a fault stops at the first failed test.
programs=("test_merge test_details test_trust")
if [ $# -gt 0 ]; then
    programs=("test_library test_helpers test_merge test_details test_frames test_region
        test_foundation test_records test_settings test_interface test_plugin"
        "test_command test_trust test_sweeps")
fi
limit=90  # seconds of a processor for a test program, which makes endless loops fail
workers=$(nproc)
export GIT_CEILING_DIRECTORIES="$home" PLYWELD_MERGES="${PLYWELD_MERGES:-1500}"
export GTEST_FAIL_FAST=1

# The files as they are now, new ones included, as a tree of their own. What an interrupted run
# left is replaced; what is the same keeps its time, so that it is not compiled again.
# copy_project FOLDER
copy_project() {
    local file
    mkdir -p "$1"
    git -C "$project" ls-files -z --cached --others --exclude-standard |
        while IFS= read -r -d '' file; do
            [ -e "$project/$file" ] || continue
            cmp -s "$project/$file" "$1/$file" || (cd "$project" && cp --parents -t "$1" "$file")
        done
    (cd "$1" && find . -path ./build -prune -o -type f -printf '%P\0') |
        while IFS= read -r -d '' file; do
            [ -e "$project/$file" ] || rm "$1/$file"
        done
}

build_tests() { build_preset native "$@" >/dev/null 2>"$top/build.log"; }

# The program whose tests are closest to a source.
nearest_program() {
    case $1 in
    merge/*) say test_merge ;;
    *"/score/records/"* | *"/score/document/"*) say test_records ;;
    *"/score/"*) sed -E 's|.*/score/([a-z]+)/.*|test_\1|' <<<"$1" ;;
    *"Files/"*/*) sed -E 's|.*Files/([a-z]+)/.*|test_\1|' <<<"$1" ;;
    *) say test_plugin ;;
    esac
}

# Prints the first test that fails; 1 when none does, 2 when a program does not build. A program
# that crashes, or does not end, has failed. failing_test GROUP...
failing_test() {
    local group program log="$build/tests.log"
    for group in "$@"; do
        # shellcheck disable=SC2086
        build_tests $group || return 2
        for program in $group; do
            if ! (ulimit -t "$limit" -v 8000000 && timeout 900 "$build/native/$program") >"$log" 2>&1; then
                grep -m 1 -oE '^\[  FAILED  \] [^, ]+' "$log" | sed 's/.*\] //' || echo "$program"
                return 0
            fi
        done
    done
    return 1
}

# What a random fault changes, without the line's number, as equal.txt has it.
what_changes() { head -n 1 "$1" | sed -E 's/^([^:]*):[0-9]+:/\1:/'; }

# Prints what became of the patch: caught, equal, NOT CAUGHT or what went wrong.
try_mutation() {
    local patch=$1 caught status=0
    if grep -qsxF "$(what_changes "$patch")" <(sed 's/\t.*//' "$patches/equal.txt" 2>/dev/null); then
        echo "equal"
        return
    fi
    git -C "$top" apply -p0 "$patch" || {
        echo "does not apply"
        return
    }
    caught=$(failing_test "$(nearest_program "$(head -n 1 "$patch" | cut -d: -f1)")" "${programs[@]}") || status=$?
    case $status in
    0) echo "caught by $caught" ;;
    1) echo "NOT CAUGHT" ;;
    *) echo "does not build" ;;
    esac
    git -C "$top" apply -p0 -R "$patch"
}

# Every worker has a tree and a build of its own and takes the next patch: work NUMBER
work() {
    local patch outcome
    top="$home/tree$1"
    build="$top/build"
    export CCACHE_BASEDIR="$top"
    if outcome=$(failing_test "${programs[@]}"); then
        fail "$outcome fails without any mutation"
    fi
    for patch in "$patches_tried"/*.patch; do
        mkdir "$home/taken/$(basename "$patch" .patch)" 2>/dev/null || continue
        outcome=$(try_mutation "$patch")
        say "$(basename "$patch" .patch): $outcome" | tee -a "$home/outcomes"
        [ "$outcome" != "NOT CAUGHT" ] || head -n 1 "$patch" >>"$home/survivors"
    done
}

# One after the other: the second finds in the cache what the first has compiled.
prepare() {
    local top="$home/tree$1" build="$home/tree$1/build"
    export CCACHE_BASEDIR="$top"
    copy_project "$top"
    # A fault changes one source, and gold links in a fraction of the time.
    [ -e "$build/native/build.ninja" ] || quietly cmake --preset native -S "$top" -B "$build/native" \
        -DCMAKE_UNITY_BUILD=OFF -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_{EXE,SHARED,MODULE}_LINKER_FLAGS=-fuse-ld=gold
    # shellcheck disable=SC2068
    build_tests ${programs[@]} || {
        tail -n 20 "$top/build.log" >&2
        fail "the tests do not build"
    }
}

rm -rf "$home"/{random,taken,outcomes,survivors}
mkdir -p "$home/taken"
patches_tried=$patches
if [ $# -gt 0 ]; then
    patches_tried="$home/random"
    (cd "$project" &&
        git ls-files -z -- 'merge/*.cpp' 'merge/*.h' 'Class Files/*.cpp' 'Class Files/*.h' |
        xargs -0 python3 scripts/mutate.py "$1" "${2:-1}" "$patches_tried")
fi
pids=()
for ((worker = 0; worker < workers; ++worker)); do
    prepare "$worker"
    (work "$worker") &
    pids+=($!)
done
for pid in "${pids[@]}"; do
    wait "$pid" || fail "a worker ended early"
done

count_of() { grep -cE ": $1" "$home/outcomes" || true; }
passed=$(count_of 'caught')
failed=$(count_of '(NOT CAUGHT|does not apply)')
[ $# -gt 0 ] || failed=$((failed + $(count_of 'does not build')))
if [ -e "$home/survivors" ]; then
    say "Not caught:"
    sort "$home/survivors"
fi
say "$passed caught of $((passed + failed)); $(count_of equal) equal, $(count_of 'does not build') do not build"
say "$passed passed, $failed failed"
