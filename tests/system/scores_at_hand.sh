# shellcheck shell=bash
# The scores of other people's that are at hand, and the ways to merge them. Sourced; the caller
# has set `top`, the project's folder.
# shellcheck disable=SC2034

corpus="${PLYWELD_CORPUS:-$top/../shared/corpus}"
suite="${PLYWELD_SUITE:-$top/../shared/musicxml-suite}"

# The options of the merges, by name; the measures of "part" go by the scores' lengths, and its
# first beat by the shortest first measure, an upbeat of one beat.
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

# unpack MXL XML: the score in the archive
unpack() {
    local member
    member=$(unzip -p "$1" META-INF/container.xml | tr -d '\r\n' |
        sed -nE 's/.*<rootfile [^>]*full-path="([^"]*)".*/\1/p')
    unzip -p "$1" "$member" >"$2"
}
