# Building, running and counting for tools/test and .ci/run. Sourced, not run, from the top folder.

reports=$(mktemp -d)
trap 'rm -rf "$reports"' EXIT

# Ends the run when there is nothing to count: what could not be built did not pass.
stop_before_tests() {
    echo "$1" >&2
    echo "0 passed, 1 failed"
    exit 1
}

# build_preset NAME [cmake argument…]: configures and builds a preset.
build_preset() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" && cmake --build --preset "$preset" -j "$(nproc)"
}

# run_suite PRESET [ctest argument…]: runs a built preset's tests and keeps the report for summarize.
run_suite() {
    local preset=$1
    shift
    ctest --test-dir "build/$preset" --output-on-failure --no-tests=error -j "$(nproc)" \
        --output-junit "$reports/$preset.xml" "$@"
}

# fuzz_each SECONDS BUILD SEEDS…: runs every fuzz target of a build on a copy of its seeds.
fuzz_each() {
    local seconds=$1 build=$2 seeds target name status=0
    shift 2
    for target in $(find "$build" -type f -executable -name 'Fuzz*' | sort); do
        name=$(basename "$target")
        mkdir -p "$reports/corpus/$name" "build/fuzz-findings"
        for seeds in "$@"; do
            if [[ -d $seeds/$name ]]; then cp -r "$seeds/$name/." "$reports/corpus/$name"; fi
        done
        echo "Fuzzing $name for $seconds seconds"
        if "$target" -max_total_time="$seconds" -timeout=25 -rss_limit_mb=4096 -print_final_stats=1 \
            -artifact_prefix="build/fuzz-findings/$name-" "$reports/corpus/$name" >"$reports/$name.log" 2>&1; then
            grep 'stat::number_of_executed_units' "$reports/$name.log" || true
            echo "passed fuzzing: $name" >>"$reports/fuzz.txt"
        else
            tail -n 60 "$reports/$name.log"
            echo "failed fuzzing: $name" >>"$reports/fuzz.txt"
            status=1
        fi
    done
    return $status
}

# Prints what was skipped and what failed, then the count of all suites so far; the exit status says
# whether everything passed.
summarize() {
    /usr/bin/python3 tools/lib/summary.py "$reports"
}
