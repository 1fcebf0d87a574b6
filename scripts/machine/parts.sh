# shellcheck shell=bash
# What the board starts from, whichever desk it belongs to. Sourced by ./desk.
#
#   $parts/board.dtb    the device tree: Debian's for the evaluation board, with one partition more and without the memory
#                       that it keeps for video, which the board does not have to spare
#   $parts/uImage       the kernel, unpacked: to do that takes the emulated processor longer than all the rest of the start
#   $parts/initrd       finds the root file system in the flash and steps into it
#   $parts/rofs         the root file system: packages, programs, scripts/machine/root
#   $parts/key          lets the desk, and nobody else, in

# Modules of the kernel, with what they depend on: what the initrd needs to find the root, and what the board has.
first_modules=(ofpart spi-aspeed-smc spi-nor mtdblock squashfs)
board_modules=(realtek mdio-aspeed ftgmac100 jffs2 gpio-aspeed i2c-aspeed i2c-dev)
# Programs of the board that are busybox.
applets=(bin/{sh,mount,umount,hostname,ps,top,free,vi,less,clear,dmesg,setsid,stat,which,xxd,uptime,ping}
    sbin/{init,reboot,syslogd,insmod,rmmod,lsmod,killall,ifconfig,route})

make_parts() {
    local making
    mkdir -p "$parts"
    exec {making}<"$parts"
    flock "$making"
    if [[ ! $parts/rofs -nt $(newest_source) ]]; then
        make_all_parts >"$parts/parts.log" 2>&1 || die "the parts of the board cannot be made: $parts/parts.log"
    fi
    exec {making}<&-
}

# Of all that goes into the parts.
newest_source() {
    find "$build"/{bin,lib,share} "$repository"/{scripts/machine,ipmcd/disk} "$parts/fetched" -type f -printf '%T@ %p\n' |
        sort -n | tail -n 1 | cut -d ' ' -f 2-
}

make_all_parts() {
    local stage=$parts/stage
    [[ -f $parts/key ]] || ssh-keygen -q -t ed25519 -N '' -C desk -f "$parts/key" || return
    unpack_kernel && make_device_tree && make_initrd && make_root || return
    mksquashfs "$stage" "$parts/rofs.new" -noappend -all-root -comp lzo -no-progress -wildcards \
        -e usr/include 'usr/lib/*/*.a' usr/share/{bug,doc,info,lintian,locale,man} || return
    rm -rf "$stage"
    (($(stat -c %s "$parts/rofs.new") <= rofs_size)) || { echo 'The root file system does not fit its partition.'; return 1; }
    mv "$parts/rofs.new" "$parts/rofs"
}

# The compressed kernel lies somewhere within, and what comes after it is no part of it.
unpack_kernel() {
    local packed offset start=0x80208000
    packed=$(echo "$parts"/kernel/boot/vmlinuz-*)
    while IFS=: read -r offset _; do
        tail -c "+$((offset + 1))" "$packed" | xz -dcq >"$parts/image" 2>/dev/null
        (($(stat -c %s "$parts/image") < 0x400000)) ||
            mkimage -A arm -O linux -T kernel -C none -a $start -e $start -d "$parts/image" "$parts/uImage" || return
    done < <(LC_ALL=C grep -abo $'\xFD7zXZ' "$packed" | tr -d '\0')
    rm "$parts/image"
    [[ -f $parts/uImage ]]
}

make_device_tree() {
    local tree=$parts/board.dtb.new partitions=/ahb/spi@1e620000/flash@0/partitions
    cp "$parts"/kernel/usr/lib/linux-image-*/aspeed-ast2600-evb.dtb "$tree" &&
        fdtput -t x "$tree" "$partitions/rwfs@2a00000" reg 2a00000 1500000 &&
        fdtput -c "$tree" "$partitions/data@3f00000" &&
        fdtput -t x "$tree" "$partitions/data@3f00000" reg 3f00000 100000 &&
        fdtput -t s "$tree" "$partitions/data@3f00000" label data &&
        fdtput -r "$tree" /reserved-memory/{video,framebuffer} &&
        mv "$tree" "$parts/board.dtb"
}

make_initrd() {
    local stage=$parts/stage
    rm -rf "$stage"
    mkdir -p "$stage"/{bin,dev,lib/modules,proc,root,sys} &&
        cp "$repository/scripts/machine/initrd/init" "$stage/init" &&
        cp "$parts/root/bin/busybox" "$stage/bin" &&
        add_modules "$stage/lib/modules" "${first_modules[@]}" &&
        pack_initrd "$stage" >"$parts/initrd.new" &&
        mv "$parts/initrd.new" "$parts/initrd"
}

# pack_initrd FOLDER: to standard output.
pack_initrd() { (cd "$1" && find . -mindepth 1 | LC_ALL=C sort | cpio --quiet -o -H newc -R 0:0); }

make_root() {
    local stage=$parts/stage name own=$repository/scripts/machine/root
    rm -rf "$stage"
    cp -al "$parts/root" "$stage" &&
        mkdir -p "$stage"/{data,dev,ipmc/usr,ko,proc,run,sys,tmp,factory,lib/modules,etc/desk/.ssh} || return
    for name in "${applets[@]}"; do
        [[ -e $stage/$name || -e $stage/usr/$name ]] || ln -s /bin/busybox "$stage/$name" || return
    done
    add_modules "$stage/lib/modules" "${board_modules[@]}" &&
        cp "$(module_file spi-nor)" "$stage/ko/m25p80.ko" &&
        cp -R --remove-destination "$repository/ipmcd/disk"/{etc,ipmc} "$stage" &&
        cp -R "$repository/ipmcd/disk/data" "$stage/factory" &&
        rm -r "$stage/factory/data/board" &&
        cp -R --remove-destination "$own/." "$stage" &&
        echo 'desk:x:0:0::/etc/desk:/bin/sh' >>"$stage/etc/passwd" &&
        cp "$parts/key.pub" "$stage/etc/desk/.ssh/authorized_keys" &&
        cp -R "$build"/{bin,share} "$stage/ipmc" &&
        mkdir "$stage/ipmc/lib" &&
        cp -P "$build"/lib/libzentro_platform.so* "$stage/ipmc/lib" &&
        ln -sfn /run/dropbear "$stage/etc/dropbear"
}

# add_modules FOLDER MODULE...: the modules with what they depend on, and `order`, in which they can be inserted.
add_modules() {
    local folder=$1 module
    shift
    for module; do
        add_module "$folder" "$module" || return
    done
}

add_module() {
    local file needed
    file=$(module_file "$2")
    [[ -n $file ]] || { echo "The kernel has no module $2."; return 1; }
    [[ ! -e $1/${file##*/} ]] || return 0
    for needed in $(grep -az '^depends=' "$file" | tr '\0,' '  ' | sed 's/^depends=//'); do
        add_module "$1" "$needed" || return
    done
    cp "$file" "$1" && echo "${file##*/}" >>"$1/order"
}

# In names "-" and "_" are the same.
module_file() { find "$parts/kernel/lib/modules" -name "${1//[-_]/[-_]}.ko" -print -quit; }
