# What all scripts share. Sourced, never run: moves to the project's folder.
# shellcheck shell=bash

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

# Runs a step under a heading and notes how long it took.
step_times=()
step() {
    local title=$1 started=$SECONDS
    shift
    say "$title"
    "$@"
    step_times+=("$(printf '%5d s  %s' $((SECONDS - started)) "$title")")
}

# Notes a step that is left out, and why.
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
    local preset=$1
    shift
    cmake --preset "$preset" > /dev/null
    if (($# > 0)); then
        cmake --build --preset "$preset" --parallel "$jobs" --target "$@"
    else
        cmake --build --preset "$preset" --parallel "$jobs"
    fi
}

# replace_part <document> <name> <file>: puts the file between the two marks of that name.
replace_part() {
    local document=$1 name=$2 part=$3
    awk -v begin="<!-- $name -->" -v end="<!-- end of $name -->" -v part="$part" '
        $0 == begin { print; print ""; while ((getline line < part) > 0) print line; print ""; skip = 1 }
        $0 == end { skip = 0 }
        !skip { print }
    ' "$document" > "$part.document"
    mv "$part.document" "$document"
}
