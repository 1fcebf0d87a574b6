# shellcheck shell=bash
# The controller of a desk's folder: ipmcd, started by the first desk there, stopped by the last. Sourced by ./desk.
#
# A desk holds `desks` shared while it is in use, so whoever gets it exclusively is alone. Starting and stopping happen
# under `start`. ipmcd holds its own lock by a descriptor it inherits: what is locked runs, whatever a pid file of
# yesterday says, and a killed desk or ipmcd leaves nothing that the next one stumbles over.

join_controller() {
    flock "$start_lock"
    make_disk
    local alive
    exec {alive}>>"$desk/controller/lock"
    if flock -n "$alive"; then
        start_controller
    elif [[ -n $board && $board != "$(<"$desk/controller/board")" ]]; then
        die "a desk is in use with board $(<"$desk/controller/board")"
    fi
    exec {alive}>&-
    flock -s "$desks_lock"
    flock -u "$start_lock"
}

leave_controller() {
    flock "$start_lock"
    flock -u "$desks_lock"
    if flock -n "$desks_lock"; then
        stop_controller
    fi
}

# In the desk's own root, since the controller reads and writes /tmp as well; in a session of its own, out of reach of
# the terminal's Ctrl-C.
start_controller() {
    local ready word hint own=$desk/controller its_board=() state=state.json
    describe_sandbox 0 root
    : >"$own/trace"
    echo "${board:-default}" >"$own/board"
    if [[ $board == /* ]]; then
        cp -- "$board" "$own/board.json" || die "$board cannot be read"
        its_board=(--board /run/ipmcd/board.json)
        state=state-of-${board##*/} # one with other sensors would not fit
    elif [[ -n $board ]]; then
        its_board=(--board "$board")
        [[ $board == default ]] || state=state-of-$board-board.json # who tells its sensors is part of the state
    fi
    exec {ready}< <(
        exec {start_lock}>&- {desks_lock}>&-
        exec 3>&1 </dev/null >"$own/log" 2>&1
        # shellcheck disable=SC2016  # the shell inside fills in $$ and $@
        exec setsid bwrap "${sandbox[@]}" --bind "$own" /run/ipmcd -- \
            "$repository/scripts/desk/system-log" /run/zentro/log /data/log/messages \
            sh -c 'echo $$ >/run/ipmcd/pid && exec ipmcd "$@"' \
            sh "${its_board[@]}" --disk / --state "/run/ipmcd/$state" --trace=/run/ipmcd/trace --ready-fd 3
    )
    if ! read -r word <&"$ready" || [[ $word != ready ]]; then
        hint=$(what_may_help "$own/log")
        show_log
        die "the controller did not start (/run/ipmcd is $own)$hint"
    fi
    exec {ready}<&-
}

what_may_help() {
    if grep -q '^bwrap: ' "$1"; then
        echo '; a container has to allow bubblewrap its namespaces'
    elif grep -q 'state file' "$1"; then
        echo '; ./desk --reset makes its state as new'
    fi
}

# Also tells what the controller had to say: nothing, when all went well.
stop_controller() {
    local alive own=$desk/controller
    exec {alive}>>"$own/lock"
    if ! flock -n "$alive"; then
        kill -TERM "$(<"$own/pid")" 2>/dev/null || true
        flock -w 20 "$alive" || say "the controller does not end; its process is $(<"$own/pid")"
    fi
    exec {alive}>&-
    show_log
}

# Once.
show_log() {
    cat "$desk/controller/log" >&2
    : >"$desk/controller/log"
}
