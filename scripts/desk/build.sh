# shellcheck shell=bash
# What the desk runs: packages and build. Sourced by ./desk.

# Silent when nothing is to do. $build/desk.log has what the compiler said.
make_programs() {
    "$repository/scripts/install-packages" run || die 'it cannot go on without these packages.'
    build_programs
}

build_programs() {
    local building log=$build/desk.log
    mkdir -p "$build"
    exec {building}<"$build"
    flock "$building" # another desk may be building
    if [[ -f $build/build.ninja ]] && ninja -C "$build" -n desk 2>&1 | grep -q 'no work to do'; then
        exec {building}<&-
        return
    fi
    say 'building, which takes some minutes ...'
    trap 'die "stopped; the next ./desk goes on from here"' INT
    if ! { configure && ninja -C "$build" desk; } 2>&1 </dev/null | tee "$log" | show_steps; then
        tail -n 60 "$log" >&2
        die "the build failed; all it said is in $log"
    fi
    trap - INT
    exec {building}<&-
}

# Ninja begins the line of each step with [number/all].
show_steps() {
    local line
    while read -r line; do
        if [[ -t 2 && $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
            printf '\rdesk: step %d of %d' "${BASH_REMATCH[@]:1}" >&2
        fi
    done
    [[ ! -t 2 ]] || echo >&2
}

configure() {
    [[ -f $build/build.ninja ]] || (cd "$repository" && cmake --preset "$preset" -B "$build")
}
