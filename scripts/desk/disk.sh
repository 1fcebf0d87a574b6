# shellcheck shell=bash
# The folder of a desk: the controller's disk, its state, and the locks of those who sit at it. Sourced by ./desk.
#
#   data ipmc web ko tmp run    what the controller's programs see as /data /ipmc /web /ko /tmp /run/zentro
#   controller                  ipmcd's own: state.json, trace, log, pid, and a lock that it holds while it lives
#   lock                        start: whoever changes something for all; desks: shared by all desks in use

disk_folders=(data ipmc web ko tmp run)

open_desk_folder() {
    # A desk begins with its lock, so what is seen filled before that is looked for is a desk that another just made.
    if [[ -d $desk && -n $(ls -A "$desk") && ! -d $desk/lock ]]; then
        die "$desk holds other things and is no desk: choose another folder in DESK_DIR"
    fi
    { mkdir -p "$desk/lock" && exec {start_lock}>>"$desk/lock/start" {desks_lock}>>"$desk/lock/desks"; } 2>/dev/null ||
        die "$desk cannot be written: choose another folder in DESK_DIR"
}

# The first use gets the factory's files. After that the disk is the user's: what was changed or removed stays so.
make_disk() {
    if [[ ! -e $desk/lock/disk-made ]]; then
        mkdir -p "$desk"/data/{home,log} "$desk/ipmc/usr"
        cp -Rn "$repository/ipmcd/disk"/{data,ipmc,web} "$desk"
        truncate -s 16M "$desk/data/board/bios-flash"
        touch "$desk/lock/disk-made"
    fi
    (cd "$desk" && mkdir -p "${disk_folders[@]}" ipmc/{bin,lib,share} controller && chmod 755 run) # sockets are there
}

remove_disk() {
    rm -f "$desk/lock/disk-made"
    (cd "$desk" && rm -rf "${disk_folders[@]}" controller)
}
