# shellcheck shell=bash
# Debian packages for 32-bit ARM, unpacked and never installed: the board's kernel, its programs, and the libraries that
# ipmcd is built with. Lists and packages are kept in a state of apt's own, so the machine's dpkg gets no foreign
# architecture and root is not needed. Sourced by ./desk.
#
#   $parts/apt       package lists and packages
#   $parts/kernel    the kernel package
#   $parts/root      all other packages

# Packages once fetched stay as they are: removing $parts fetches the newest ones.
fetch_packages() {
    local wanted
    wanted=$("$repository/scripts/install-packages" --list ast2600-armhf)
    [[ $(cat "$parts/fetched" 2>/dev/null) != "$wanted" ]] || return 0
    say 'fetching the packages of the board, 70 MB ...'
    rm -rf "$parts"/{fetched,kernel,root}
    # shellcheck disable=SC2086  # one word a package
    download $wanted >"$parts/apt.log" 2>&1 || die "packages for the board cannot be had:
$(grep '^[EW]:' "$parts/apt.log")"
    unpack >"$parts/apt.log" 2>&1 || die "the packages of the board cannot be unpacked: $parts/apt.log"
    echo "$wanted" >"$parts/fetched"
}

# A list that cannot be fetched just now matters only if a package cannot be had without it. Nobody wants what the
# kernel's package needs to be installed.
download() {
    local kernel
    mkdir -p "$parts"/apt/{lists,archives}/partial
    : >"$parts/apt/status"
    apt_for_armhf apt-get update || true
    kernel=$(apt_for_armhf apt-cache depends linux-image-armmp | sed -n 's/.*Depends: \(linux-image-[0-9.]*-[0-9]*-armmp\)$/\1/p')
    [[ -n $kernel ]] || { echo 'E: linux-image-armmp is not in the package lists'; return 1; }
    rm -f "$parts"/apt/archives/*.deb "$parts"/apt/*.deb
    apt_for_armhf apt-get install -y --no-install-recommends --download-only "$@" &&
        (cd "$parts/apt" && apt_for_armhf apt-get download "$kernel")
}

apt_for_armhf() {
    local program=$1
    shift
    "$program" -q -o Dir::State="$parts/apt" -o Dir::State::status="$parts/apt/status" -o Dir::Cache="$parts/apt" \
        -o APT::Architecture=armhf -o APT::Architectures=armhf -o APT::Sandbox::User=root "$@"
}

unpack() {
    local package
    mkdir -p "$parts"/{kernel,root}
    dpkg-deb -x "$parts"/apt/linux-image-*.deb "$parts/kernel" || return
    for package in "$parts"/apt/archives/*.deb; do
        dpkg-deb -x "$package" "$parts/root" || return
    done
}
