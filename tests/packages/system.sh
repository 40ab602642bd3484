# A fresh system, and a supplicant in it; sourced by install.
# shellcheck shell=bash disable=SC2154,SC2016 # variables of install; expanded by another shell

# The host's own list of sources, without those of others.
sources_of_the_host() {
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/{debian,ubuntu}.sources; do
        if grep -qs '^[^#]' "$file"; then printf '%s\n' "$file"; fi
    done
}

make_system() {
    local suite lists
    suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mapfile -t lists < <(sources_of_the_host)
    apt-config dump --format '%f "%v";%n' Acquire::http Acquire::https >"$work/apt.conf"
    quietly mmdebstrap --mode=root --variant=minbase --format=directory --aptopt="$work/apt.conf" \
        --aptopt='Acquire::Languages "none"' --dpkgopt=force-unsafe-io --skip=cleanup/apt/lists \
        "$suite" "$root" "${lists[@]}" || skip "cannot make a fresh system of $suite (see above)"
    cp /etc/resolv.conf "$root/etc/"
    mount -t proc proc "$root/proc"
    mount -t tmpfs -o mode=1777 tmp "$root/tmp"
    mkdir -p "$root/dev/shm"
    mount -t tmpfs -o mode=1777 shm "$root/dev/shm"
    cp -r "$here/inside" "$here/../../docs/examples" "$root/srv/"
}

# Shows what it said only when it fails.
quietly() { "$@" >"$work/log" 2>&1 </dev/null || { tail -n 40 "$work/log" >&2 && return 1; }; }

inside() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

apt_inside() { quietly inside apt-get -q -y "$@" || fail "apt-get $* failed (see above)"; }

# with_supplicant PROGRAM: runs it in the system, with a supplicant for wlan0, which is a pair of Ethernet interfaces.
with_supplicant() {
    export -f inside
    unshare --net bash -ec '
        ip link set lo up
        ip link add wlan0 type veth peer name far0
        ip link set far0 up
        ip link set wlan0 up
        inside /srv/inside/with_supplicant "/srv/inside/$1"' - "$1" </dev/null || fail "$1 failed (see above)"
}
