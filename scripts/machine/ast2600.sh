# shellcheck shell=bash
# An emulated board as the desk's controller. These functions take the place of those that make and start the simulated
# controller of the desk. Sourced by ./desk.
#
# The folder of a desk with a board: what the board keeps, and what belongs to the emulator that runs.
#
#   flash host-flash eeprom     images of its three chips
#   controller                  console, a socket, and console.log, all that was shown there; ssh, the way in; log, pid, lock
#   lock                        as in a desk without a board
#
# Commands come in by ssh, over one connection for as long as the board runs: what a command reads and writes arrives as it
# is, with its exit status, and several can run at the same time. The connection is the user's own: the board listens on an
# address of the loopback network, and lets in who has the key.

#
# $DESK_QEMU has more words for the emulator, $DESK_KERNEL more for the kernel's command line.

# shellcheck source=scripts/machine/packages.sh
source "$repository/scripts/machine/packages.sh"
# shellcheck source=scripts/machine/parts.sh
source "$repository/scripts/machine/parts.sh"

build=$(realpath -m -- "${DESK_BUILD:-$repository/build-ast2600}")
parts=$build/board
preset=ast2600
library=lib # a controller's own
(open_desk_folder) || exit # the board's is a desk within that of the user
desk=$desk/ast2600
rofs_at=$((0xA00000)) rofs_size=$((0x2000000)) flash_size=$((0x4000000))

make_programs() {
    "$repository/scripts/install-packages" run ast2600 || die 'it cannot go on without these packages.'
    mkdir -p "$parts"
    fetch_packages
    build_programs
    make_parts
}

# The first use gets empty chips, but for the EEPROM. The root file system is always that of the programs.
make_disk() {
    mkdir -p "$desk/controller"
    local chip
    for chip in flash host-flash; do
        [[ -e $desk/$chip ]] || make_empty_flash "$desk/$chip"
    done
    [[ -e $desk/eeprom ]] || cp "$repository/ipmcd/disk/data/board/eeprom" "$desk/eeprom"
}

make_empty_flash() {
    head -c "$flash_size" /dev/zero | tr '\0' '\377' >"$1.new"
    mv "$1.new" "$1"
}

remove_disk() { rm -rf "$desk"/{flash,host-flash,eeprom,controller}; }

start_controller() {
    local emulator
    place_root
    make_settings
    rm -f "$desk"/controller/{console,console.log,ssh}
    echo "${board:-default}" >"$desk/controller/board"
    start_emulator
    wait_for_board
}

# From the second start on it is there already, unless the programs were built anew.
place_root() {
    [[ -f $parts/rofs ]] || die "there is no $parts/rofs"
    cmp -s -n "$(stat -c %s "$parts/rofs")" -i "0:$rofs_at" "$parts/rofs" "$desk/flash" ||
        dd if="$parts/rofs" of="$desk/flash" bs=64K seek="$rofs_at" oflag=seek_bytes conv=notrunc status=none ||
        die "$desk/flash cannot be written"
}

# What differs from start to start goes in by the initrd.
make_settings() {
    local folder=$desk/controller/settings
    rm -rf "$folder"
    mkdir -p "$folder/settings"
    date +%s >"$folder/settings/time"
    if [[ $board == /* ]]; then
        cp -- "$board" "$folder/settings/board.json" || die "$board cannot be read"
        echo /run/settings/board.json >"$folder/settings/board"
    else
        echo "$board" >"$folder/settings/board"
    fi
    { cat "$parts/initrd" && pack_initrd "$folder"; } >"$desk/controller/initrd" || die 'the initrd cannot be made'
}

# In a session of its own, out of reach of the terminal's Ctrl-C; in its folder, since names of sockets have to be short.
start_emulator() {
    local more=() address="127.$((RANDOM % 254 + 1)).$((RANDOM % 254 + 1)).$((RANDOM % 254 + 1))"
    read -ra more <<<"${DESK_QEMU:-}" || true
    echo "$address" >"$desk/controller/address"
    (
        cd "$desk/controller" || exit
        exec {start_lock}>&- {desks_lock}>&- </dev/null >log 2>&1
        echo "$BASHPID" >pid
        exec setsid qemu-system-arm -M ast2600-evb -m 512M -no-reboot -display none -monitor none \
            -kernel "$parts/uImage" -dtb "$parts/board.dtb" -initrd initrd \
            -append "console=ttyS4,115200 quiet panic=1 vmalloc=640M ${DESK_KERNEL:-}" \
            -drive file=../flash,format=raw,if=mtd -drive file=../host-flash,format=raw,if=mtd \
            -drive file=../eeprom,format=raw,if=none,id=eeprom \
            -device at24c-eeprom,bus=aspeed.i2c.bus.2,address=0x50,rom-size=16384,drive=eeprom \
            -chardev socket,id=console,path=console,server=on,wait=off,logfile=console.log -serial chardev:console \
            -nic "user,restrict=on,hostfwd=tcp:$address:2222-:22" \
            -nic user,restrict=on -nic user,restrict=on -nic user,restrict=on "${more[@]}"
    ) &
    emulator=$!
}

# One that fails tells why on its console.
wait_for_board() {
    local n
    for ((n = 0; n < 1200; n++)); do
        if grep -q '^The board is up' "$desk/controller/console.log" 2>/dev/null; then
            connect || break
            return
        fi
        kill -0 "$emulator" 2>/dev/null || break
        sleep 0.1
    done
    kill "$emulator" 2>/dev/null || true
    cat "$desk"/controller/{log,console.log} >&2 || true
    die 'the board did not start'
}

connect() {
    local options=(IdentitiesOnly=yes StrictHostKeyChecking=no UserKnownHostsFile=/dev/null LogLevel=ERROR ConnectTimeout=60
        ServerAliveInterval=20)
    by_ssh -M -N -f -i "$parts/key" -p 2222 "${options[@]/#/-o}" "desk@$(<"$desk/controller/address")" \
        </dev/null >>"$desk/controller/log" 2>&1 {start_lock}>&- {desks_lock}>&- {alive}>&-
}

by_ssh() { (cd "$desk/controller" && exec ssh -F none -S ssh "$@"); }

# on_board WORD...: runs a command of the board's own, as root.
on_board() { by_ssh board "$(quoted "$@")"; }

# The words for the board's shell.
quoted() {
    local word
    for word; do
        printf "'%s' " "${word//\'/\'\\\'\'}"
    done
}

# Its files are written out before it is switched off.
stop_controller() {
    local alive
    exec {alive}>>"$desk/controller/lock"
    if ! flock -n "$alive"; then
        on_board sh -c 'controller stop; sync; reboot -f' </dev/null >/dev/null 2>&1 &
        if ! flock -w 30 "$alive"; then
            say 'the board does not end; it is switched off'
            kill -TERM "$(<"$desk/controller/pid")" 2>/dev/null || true
            flock -w 20 "$alive" || say "its emulator does not end; the process is $(<"$desk/controller/pid")"
        fi
    fi
    exec {alive}>&-
    show_log
}

# Ctrl-C is the command's to answer: at a terminal of the board, when this one's is used.
run() {
    local child='' status=0 ended='' terminal=() environment=("LANG=${LANG:-C.UTF-8}") name
    for name in TERM SSH_CONNECTION REMOTEHOST; do
        [[ ! -v $name ]] || environment+=("$name=${!name}")
    done
    if [[ -t 0 && -t 1 ]]; then
        terminal=(-tt)
    fi
    local step=(step-in "$user" "$(name_of_user "$user")" "${environment[@]}" --)
    [[ $trace == no ]] || step+=(traced)
    trap '' INT QUIT
    trap 'end_command HUP' HUP
    trap 'end_command TERM' TERM
    (by_ssh -q -e none "${terminal[@]}" board "exec $(quoted "${step[@]}" "$@")") <&0 {start_lock}>&- {desks_lock}>&- &
    child=$!
    [[ -z $ended ]] || end_command "$ended"
    wait "$child" || status=$?
    trap '' HUP TERM
    wait "$child" 2>/dev/null || true
    ((status != 255)) || by_ssh -O check board 2>/dev/null || die 'the board was switched off'
    return "$status"
}

# On the console, unless somebody else is there or there is no terminal.
run_shell() {
    local console
    exec {console}>>"$desk/controller/console.lock"
    if [[ -t 0 && -t 1 ]] && ((user == 0)) && flock -n "$console"; then
        use_console
    else
        run bash -l
    fi
}

# What is typed goes to the console but for Ctrl-A X, which leaves; Ctrl-A twice types one.
use_console() {
    local terminal
    say 'this is the console of the board; Ctrl-A X leaves'
    terminal=$(stty -g)
    stty raw -echo
    (cd "$desk/controller" && perl "$repository/scripts/machine/console.pl" console) || true
    stty "$terminal"
    echo
}
