# shellcheck shell=bash
# The controller as its programs see it: a root of its own, put together by bubblewrap. Sourced by ./desk.
#
# Nothing of the machine can be written from inside but the desk's folder and the build. It keeps accidents from the
# machine; it is no prison for hostile programs, which run with the rights of whoever started the desk.

# sandbox USER LOGNAME: fills `sandbox` with bubblewrap's arguments.
describe_sandbox() {
    local user=$1 logname=$2 top folder name
    sandbox=(--unshare-user --uid "$user" --gid "$user" --cap-drop ALL --unshare-uts --hostname ipmc)

    sandbox+=(--ro-bind /usr /usr --ro-bind /etc /etc)
    for top in /bin /lib*; do
        if [[ -L $top ]]; then
            sandbox+=(--symlink "$(readlink "$top")" "$top")
        else
            sandbox+=(--ro-bind "$top" "$top")
        fi
    done
    for name in passwd group profile; do
        sandbox+=(--ro-bind "$repository/ipmcd/disk/etc/$name" "/etc/$name")
    done
    # What the tool runs from there. The machine's own system programs are in /usr/sbin.
    sandbox+=(--ro-bind "$repository/ipmcd/disk/sbin" /sbin)
    sandbox+=(--proc /proc --dev /dev --symlink ../run/zentro/log /dev/log --symlink ../tmp /var/tmp)

    for folder in data ipmc web ko tmp; do
        sandbox+=(--bind "$desk/$folder" "/$folder")
    done
    sandbox+=(--bind "$desk/run" /run/zentro)
    sandbox+=(--ro-bind "$build/bin" /ipmc/bin --ro-bind "$build/$library" /ipmc/lib)
    [[ ! -d $build/share ]] || sandbox+=(--ro-bind "$build/share" /ipmc/share)
    # Where they are on the machine as well: paths that the user types, and what a coverage build writes.
    sandbox+=(--ro-bind "$repository" "$repository" --bind "$build" "$build")

    sandbox+=(--clearenv --setenv PATH /ipmc/bin:/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin)
    sandbox+=(--setenv HOME "$home" --setenv SHELL /bin/bash --setenv LANG "${LANG:-C.UTF-8}")
    if [[ -n $logname ]]; then
        sandbox+=(--setenv LOGNAME "$logname" --setenv USER "$logname")
    fi
    for name in TERM NO_COLOR SSH_CONNECTION REMOTEHOST ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS; do
        [[ ! -v $name ]] || sandbox+=(--setenv "$name" "${!name}")
    done
}

# Behind describe_sandbox: another platform library, a file or a folder.
replace_library() {
    local place=/ipmc/lib
    [[ -d $1 ]] || place=/ipmc/lib/$library_name
    sandbox+=(--ro-bind "$1" "$place")
}

# The loader would only say that it cannot open the file.
see_to_platform() {
    local file=$1
    [[ ! -d $file ]] || file=$file/$library_name
    [[ $(elf_kind "$file") == "$(elf_kind "$build/bin/cfgtool")" ]] ||
        die "--platform: $file is not a library for this machine's processor"
}

# Word size, byte order and processor of a program or library, as the ELF header has them.
elf_kind() {
    local octets
    mapfile -t octets < <(od -An -v -tx1 -w1 -N20 "$1")
    echo "${octets[*]:0:6} ${octets[*]:18:2}"
}

# The name of a user number on the controller; nothing when it has none.
name_of_user() {
    local name number
    while IFS=: read -r name _ number _; do
        if ((number == $1)); then
            echo "$name"
            return
        fi
    done <"$repository/ipmcd/disk/etc/passwd"
}

# A system-call filter for `bwrap --seccomp`. The command shares the user's terminal, and must, for job control and
# Ctrl-C (--new-session would take it away). With TIOCSTI, or TIOCLINUX on a console, it could type into that terminal
# what the user's own shell then runs: these two ioctls fail with EPERM. The filter is classic BPF, eight bytes an
# instruction: code (16 bits), jump if true and if false (8 each), operand (32), all little-endian.
terminal_guard() {
    bpf 20 0 0 0                      # load the number of the system call
    bpf 15 3 0 16                     # ioctl on x86-64?
    bpf 15 2 0 29                     # ioctl on 64-bit ARM?
    bpf 15 1 0 54                     # ioctl on 32-bit ARM and x86?
    bpf 15 0 4 $((0x40000202))        # ioctl on x32? else allow
    bpf 20 0 0 24                     # load the second argument: the request
    bpf 15 1 0 $((0x5412))            # TIOCSTI?
    bpf 15 0 1 $((0x541C))            # TIOCLINUX? else allow
    bpf 06 0 0 $((0x00050000 | 1))    # fail with EPERM
    bpf 06 0 0 $((0x7FFF0000))        # allow
}

# bpf CODE JUMP-IF-TRUE JUMP-IF-FALSE OPERAND: one instruction; the code is hexadecimal.
bpf() {
    local octets
    printf -v octets '\\x%02x' "0x$1" 0 "$2" "$3" $(($4 & 255)) $(($4 >> 8 & 255)) $(($4 >> 16 & 255)) $(($4 >> 24 & 255))
    printf '%b' "$octets"
}
