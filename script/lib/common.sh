# Functions for all scripts. To be sourced; changes to the project's folder. shellcheck shell=bash

cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit

jobs=$(getconf _NPROCESSORS_ONLN)

say() {
    printf '\n==> %s\n' "$*"
}

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

is_linux() {
    [[ $(uname) == Linux ]]
}

# step <title> <command...>: runs a command under a heading and records how long it took.
step_times=()
step() {
    local title=$1 started=$SECONDS
    shift
    say "$title"
    "$@"
    step_times+=("$(printf '%5d s  %s' $((SECONDS - started)) "$title")")
}

# skip <reason>: records that a step was skipped.
skipped=()
skip() {
    say "Skipped: $1"
    skipped+=("$1")
}

print_step_times() {
    say "How long each step took"
    printf '%s\n' "${step_times[@]}"
    local reason
    for reason in "${skipped[@]}"; do
        printf '\n*** SKIPPED: %s ***\n' "$reason"
    done
}

# build_with <preset> [target...]
build_with() {
    local preset=$1 arguments=(--preset "$1" --parallel "$jobs")
    shift
    (($# == 0)) || arguments+=(--target "$@")
    # Ninja shows its progress in one line of a terminal, but in a log as a line for each file.
    [[ -t 1 ]] || arguments+=(-- --quiet)
    cmake --preset "$preset" > /dev/null
    cmake --build "${arguments[@]}"
}

# run_ctest <preset> <ctest's arguments...>: prints only the tests that fail, and the summary.
run_ctest() {
    local preset=$1
    shift
    ctest --preset "$preset" "$@" | grep --line-buffered -vE '^ +Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test .* Passed '
}

# replace_part <document> <name> <file>: replaces what is between the two markers of that name with the file.
replace_part() {
    local document=$1 name=$2 part=$3
    awk -v begin="<!-- $name -->" -v end="<!-- end of $name -->" -v part="$part" '
        $0 == begin { print; print ""; while ((getline line < part) > 0) print line; print ""; skip = 1 }
        $0 == end { skip = 0 }
        !skip { print }
    ' "$document" > "$part.document"
    mv "$part.document" "$document"
}
