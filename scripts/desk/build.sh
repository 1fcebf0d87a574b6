# shellcheck shell=bash
# What the desk runs: packages and build. Sourced by ./desk.

# Without an output when nothing is to do; $repository/build/desk.log has what the compiler said.
make_programs() {
    local building log=$build/desk.log wanted=("${programs[@]}" zentro_platform_simulator manual-pages)
    "$repository/scripts/install-packages" run || die 'it cannot go on without these packages.'
    mkdir -p "$build"
    exec {building}<"$build"
    flock "$building" # another desk may be building
    if [[ -f $build/build.ninja ]] && ninja -C "$build" -n "${wanted[@]}" 2>&1 | grep -q 'no work to do'; then
        exec {building}<&-
        return
    fi
    say 'building, which takes some minutes ...'
    trap 'die "stopped; the next ./desk goes on from here"' INT
    if ! { configure && ninja -C "$build" "${wanted[@]}"; } >"$log" 2>&1 </dev/null; then
        tail -n 60 "$log" >&2
        die "the build failed; all it said is in $log"
    fi
    trap - INT
    exec {building}<&-
}

configure() {
    [[ -f $build/build.ninja ]] || (cd "$repository" && cmake --preset release)
}
