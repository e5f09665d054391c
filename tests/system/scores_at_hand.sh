# shellcheck shell=bash
# The scores of other people's that are at hand, and the ways to merge them. Sourced; the caller
# has set `top`, the project's folder.
# shellcheck disable=SC2034

corpus="${PLYWELD_CORPUS:-$top/../shared/corpus}"
suite="${PLYWELD_SUITE:-$top/../shared/musicxml-suite}"

# The options of the merges, by name; for those of a part, set_measures comes first. Its first beat
# goes by the shortest first measure, an upbeat of one beat.
ways=(all others into-second part)
options_of() {
    case $1 in
    all) echo "--from all --to 1" ;;
    others) echo "--from 2 --to 1" ;;
    into-second) echo "--from 1 --to 2 --hide-rests" ;;
    into-third) echo "--from 1 --to 3" ;;
    part) echo "--measures $measures --from-beat 1.5 --to-beat 3" ;;
    end-of-a-staff) echo "--from all --to 2 --measures $measures --from-beat 1.5 --staves 1-1" ;;
    esac
}

# set_measures FIRST XML: the measures of a part go from the FIRST to the end of the score, or from the
# only one.
set_measures() {
    measures="#$1-"
    [ "$(grep -oE '<measure[ >]' "$2" | wc -l)" -gt "$(grep -o '</part>' "$2" | wc -l)" ] || measures=#1-
}

# is_too_short ERRORS: whether a merge of a part failed only because there is no such beat
is_too_short() {
    grep -q 'ends before the first beat' "$1"
}

# unpack MXL XML: the score in the archive
unpack() {
    local member
    member=$(unzip -p "$1" META-INF/container.xml | tr -d '\r\n' |
        sed -nE 's/.*<rootfile [^>]*full-path="([^"]*)".*/\1/p')
    unzip -p "$1" "$member" >"$2"
}
