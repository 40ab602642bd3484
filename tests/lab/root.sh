# The root of a guest whose architecture is not the host's: Debian packages, unpacked but not installed.
# shellcheck shell=bash
# shellcheck disable=SC2154 # machine.sh sets debian_name, java_home, scripts/lab architecture

# What Debian has on every system; what the lab runs; what the jobs run; the libraries of the programs under test.
ROOT_PACKAGES=('?essential'
    busybox-static hostapd iproute2 iw kmod mount openssl wpasupplicant
    default-jre-headless libxml2-utils procps tmux
    libssl3 libstdc++6)

# Folders of packages that are links on every system. Relative: files unpacked through them stay inside.
make_links() {
    local name
    mkdir -p "$1/run/lock" "$1/var"
    ln -s ../run "$1/var/run"
    for name in bin lib sbin; do
        mkdir -p "$1/usr/$name"
        ln -s "usr/$name" "$1/$name"
    done
}

# unpack PACKAGE ROOT: not by dpkg -x, which replaces those links by folders.
unpack() { dpkg-deb --fsys-tarfile "$1" | tar -x --keep-directory-symlink -C "$2"; }

# record PACKAGE ROOT: as installed, so that dpkg in the guest finds the dependencies of what it installs.
record() {
    local package=$1 database=$2/var/lib/dpkg name file work=$2/control
    dpkg-deb -e "$package" "$work"
    name=$(sed -n 's/^Package: //p' "$work/control")
    if grep -qx 'Multi-Arch: same' "$work/control"; then name=$name:$debian_name; fi
    { cat "$work/control" && printf 'Status: install ok installed\n\n'; } >>"$database/status"
    dpkg-deb --fsys-tarfile "$package" | tar -t | sed 's,^\.,,; s,/$,,; s,^$,/.,' \
        >"$database/info/$name.list"
    for file in "$work"/*; do
        case ${file##*/} in
        control | md5sums) ;;
        *) cp "$file" "$database/info/$name.${file##*/}" ;;
        esac
    done
    rm -r "$work"
}

# What the scripts of the packages would make, as far as the guest needs it.
complete_root() {
    local root=$1
    cp "$root/usr/share/base-passwd/passwd.master" "$root/etc/passwd"
    cp "$root/usr/share/base-passwd/group.master" "$root/etc/group"
    ln -sf dash "$root/usr/bin/sh"
    ln -sf mawk "$root/usr/bin/awk"
    ln -sf "$java_home/bin/java" "$root/usr/bin/java"
    mkdir -p "$root/var/lib/dpkg/triggers"
    printf 'libc-bin/noawait\n' >"$root/var/lib/dpkg/triggers/ldconfig"
}

# build_root FOLDER: fills it with a root for the guest, and a database of its packages for dpkg.
build_root() {
    local root=$1 work=$1/fetched package
    step "fetching programs for a guest of the kind $architecture (once, about 110 MB)"
    mkdir "$work"
    if ! use_own_package_list "$work" ||
        ! download_with_dependencies "$work" "${ROOT_PACKAGES[@]}"; then
        fail "cannot download $debian_name packages ($(download_error "$work"));" \
            "check the network and the apt sources, then try again"
    fi
    make_links "$root"
    mkdir -p "$root/var/lib/dpkg/info"
    for package in "$work"/*.deb; do
        unpack "$package" "$root"
        record "$package" "$root"
    done
    complete_root "$root"
    rm -r "$work"
}
