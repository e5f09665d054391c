#!/usr/bin/env bash
# Breaks the merge on purpose, once for each patch in tests/mutations, and expects that a test
# fails. Works on a copy of the project in build/mutations; the last lines count.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
. "$top/scripts/setup.sh"

project=$top
home="$build/mutations"
programs=(test_merge test_details test_trust)
export GIT_CEILING_DIRECTORIES="$home" PLYWELD_MERGES="${PLYWELD_MERGES:-1500}"

# From here on the copy is the project that is built.
top="$home/tree"
build="$top/build"
export CCACHE_BASEDIR="$top"

passed=0
failed=0

# The files as they are now, new ones included. Made afresh, as is the build: what an
# interrupted run left must not count.
copy_project() {
    rm -rf "$home"
    mkdir -p "$top"
    git -C "$project" ls-files -z --cached --others --exclude-standard |
        (cd "$project" && xargs -0 cp --parents -t "$top")
}

build_tests() { build_preset native "${programs[@]}" 2>"$home/build.log"; }

# Prints the first test that fails; false when none does. A program that crashes has failed.
failing_test() {
    local program log="$home/tests.log"
    for program in "${programs[@]}"; do
        if ! timeout 300 "$build/native/$program" >"$log" 2>&1; then
            grep -m 1 -oE '^\[  FAILED  \] [^, ]+' "$log" | sed 's/.*\] //' || echo "$program"
            return 0
        fi
    done
    return 1
}

try_mutation() {
    local patch=$1 name caught
    name=$(basename "$patch" .patch)
    if ! git -C "$top" apply -p0 "$patch"; then
        say "$name: does not apply"
        failed=$((failed + 1))
        return
    fi
    if ! build_tests; then
        say "$name: does not build"
        failed=$((failed + 1))
    elif caught=$(failing_test); then
        say "$name: caught by $caught"
        passed=$((passed + 1))
    else
        say "$name: NOT CAUGHT"
        failed=$((failed + 1))
    fi
    git -C "$top" apply -p0 -R "$patch"
}

copy_project
build_tests || {
    tail -n 20 "$home/build.log" >&2
    fail "the tests do not build"
}
if unbroken=$(failing_test); then
    fail "$unbroken fails without any mutation"
fi
for patch in "$project"/tests/mutations/*.patch; do
    try_mutation "$patch"
done
say "$passed caught of $((passed + failed))"
say "$passed passed, $failed failed"
