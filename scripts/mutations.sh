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
programs=(test_merge test_details test_trust)
limit=300  # seconds for a test program
if [ $# -gt 0 ]; then
    # The quick ones first.
    programs=(test_library test_helpers test_merge test_details test_frames test_region test_foundation
        test_records test_settings test_interface test_plugin test_command test_trust test_sweeps)
    limit=180
fi
workers=$(nproc)
export GIT_CEILING_DIRECTORIES="$home" PLYWELD_MERGES="${PLYWELD_MERGES:-1500}"

# The files as they are now, new ones included, as a tree of their own. Fresh, as is the build:
# what an interrupted run left must not count. copy_project FOLDER
copy_project() {
    mkdir -p "$1"
    git -C "$project" ls-files -z --cached --others --exclude-standard |
        (cd "$project" && xargs -0 cp --parents -t "$1")
}

build_tests() { build_preset native "$@" >/dev/null 2>"$top/build.log"; }

# Prints the first test that fails; 1 when none does, 2 when a program does not build. A program
# that crashes, or does not end, has failed. Each is linked just before it runs: most faults are
# caught by one of the first.
failing_test() {
    local program log="$top/tests.log"
    for program in "${programs[@]}"; do
        build_tests "$program" || return 2
        if ! timeout "$limit" "$build/native/$program" >"$log" 2>&1; then
            grep -m 1 -oE '^\[  FAILED  \] [^, ]+' "$log" | sed 's/.*\] //' || echo "$program"
            return 0
        fi
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
    caught=$(failing_test) || status=$?
    case $status in
    0) echo "caught by $caught" ;;
    1) echo "NOT CAUGHT" ;;
    *) echo "does not build" ;;
    esac
    git -C "$top" apply -p0 -R "$patch"
}

# Every worker has a tree and a build of its own and takes each workers-th patch: work NUMBER
work() {
    local number=0 patch outcome
    top="$home/tree$1"
    build="$top/build"
    export CCACHE_BASEDIR="$top"
    copy_project "$top"
    build_tests "${programs[@]}" || {
        tail -n 20 "$top/build.log" >&2
        fail "the tests do not build"
    }
    if outcome=$(failing_test); then
        fail "$outcome fails without any mutation"
    fi
    for patch in "$patches_tried"/*.patch; do
        number=$((number + 1))
        [ $((number % workers)) -eq "$1" ] || continue
        outcome=$(try_mutation "$patch")
        say "$(basename "$patch" .patch): $outcome" | tee -a "$home/outcomes"
        [ "$outcome" != "NOT CAUGHT" ] || head -n 1 "$patch" >>"$home/survivors"
    done
}

rm -rf "$home"
mkdir -p "$home"
patches_tried=$patches
if [ $# -gt 0 ]; then
    patches_tried="$home/random"
    (cd "$project" &&
        git ls-files -z -- 'merge/*.cpp' 'merge/*.h' 'Class Files/*.cpp' 'Class Files/*.h' |
        xargs -0 python3 scripts/mutate.py "$1" "${2:-1}" "$patches_tried")
fi
pids=()
for ((worker = 0; worker < workers; ++worker)); do
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
