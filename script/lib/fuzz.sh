# Runs the fuzz targets. To be sourced after common.sh. shellcheck shell=bash

# fuzz_for <seconds>: runs each target for this long, one per processor at a time. Crashing inputs are written
# to build/fuzz/found, and the grown corpora to build/fuzz/corpus.
fuzz_for() {
    local seconds=$1
    [[ $seconds =~ ^[1-9][0-9]*$ ]] || fail "script/test --fuzz: how many seconds?"
    rm -rf build/fuzz/log
    mkdir -p build/fuzz/found build/fuzz/log
    local targets=() target running=()
    for target in Tests/Fuzz/Corpus/*; do
        targets+=("${target##*/}")
    done

    for target in "${targets[@]}"; do
        if ((${#running[@]} == jobs)); then
            # A crash of one target does not end the others.
            wait "${running[0]}" || true
            running=("${running[@]:1}")
        fi
        fuzz_one "$target" "$seconds" &
        running+=($!)
    done
    local pid
    for pid in "${running[@]}"; do
        wait "$pid" || true
    done
    report_fuzzing "${targets[@]}"
}

fuzz_one() {
    local target=$1 seconds=$2
    mkdir -p "build/fuzz/corpus/$target"
    "build/fuzz/Tests/Fuzz/Fuzz$target" \
        -max_total_time="$seconds" -timeout=2 -max_len=65536 -rss_limit_mb=1024 -malloc_limit_mb=256 \
        -dict="Tests/Fuzz/$target.dict" -artifact_prefix="build/fuzz/found/$target-" \
        -print_final_stats=1 -close_fd_mask=1 \
        "build/fuzz/corpus/$target" "Tests/Fuzz/Corpus/$target" > "build/fuzz/log/$target" 2>&1
}

# Prints a line for each target, and the end of the log of each that found something.
report_fuzzing() {
    local target log failed=0
    printf '%-16s %12s %8s %8s %8s %8s\n' target runs runs/s edges features 'MB'
    for target in "$@"; do
        log=build/fuzz/log/$target
        printf '%-16s %12s %8s %8s %8s %8s\n' "$target" \
            "$(fuzz_figure "$log" number_of_executed_units)" \
            "$(fuzz_figure "$log" average_exec_per_sec)" \
            "$(grep -oE 'cov: [0-9]+' "$log" | tail -1 | cut -d' ' -f2)" \
            "$(grep -oE 'ft: [0-9]+' "$log" | tail -1 | cut -d' ' -f2)" \
            "$(fuzz_figure "$log" peak_rss_mb)"
        if ! grep -q '^Done ' "$log"; then
            tail -40 "$log" >&2
            failed=1
        fi
    done
    ((failed == 0)) || fail "the findings are in build/fuzz/found; add each to Tests/Fuzz/Corpus, with a test"
}

fuzz_figure() {
    sed -nE "s/^stat::$2: +//p" "$1"
}
