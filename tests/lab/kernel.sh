# Fetches a distribution kernel with simulated radios; it is unpacked, never installed.
# shellcheck shell=bash
# shellcheck disable=SC2154 # machine.sh sets general_kernels

# Without ghash-generic the radios refuse keys for GCMP.
KERNEL_MODULES=(ccm gcm ghash-generic cmac ctr michael_mic virtio_pci 9pnet_virtio 9p overlay mac80211_hwsim)

# The kernel packages that the distribution's newest general kernel stands for, the image first.
kernel_packages() {
    local meta image version
    for meta in "${general_kernels[@]}"; do
        image=$(apt-cache "${apt_option[@]}" depends "$meta" 2>/dev/null |
            sed -n 's/^ *Depends: \(linux-image-[0-9].*\)/\1/p' | head -n 1)
        if [ -n "$image" ]; then break; fi
    done
    [ -n "$image" ] || return 0
    version=${image#linux-image-}
    printf '%s\n' "$image"
    # Where the modules are not in the image, simulated radios are in the package of extra modules.
    apt-cache "${apt_option[@]}" pkgnames linux-modules |
        grep -xF -e "linux-modules-$version" -e "linux-modules-extra-$version" || true
}

download_kernel() {
    local packages
    mapfile -t packages < <(kernel_packages)
    download "$1" "${packages[@]}"
}

# decompress FORMAT FILE: writes the contents to standard output.
decompress() {
    case $1 in
    xz) xz -dc "$2" ;;
    zstd | zst) zstd -dcq "$2" ;;
    gzip | gz) gzip -dc "$2" ;;
    esac
}

# The image may be a small program followed by the compressed kernel; the kernel alone starts sooner.
extract_vmlinux() {
    local image=$1 vmlinux=$2 format magic offset
    while read -r format magic; do
        offset=$(LC_ALL=C grep -aboP -m 1 "$magic" "$image" | head -n 1 | cut -d : -f 1) || true
        if [ -z "$offset" ]; then continue; fi
        tail -c "+$((offset + 1))" "$image" >"$vmlinux.part"
        # What follows the stream makes the program complain after it wrote the kernel.
        decompress "$format" - <"$vmlinux.part" >"$vmlinux" 2>/dev/null || true
        rm "$vmlinux.part"
        if [ "$(head -c 4 "$vmlinux")" = $'\x7fELF' ]; then return; fi
    done <<'TABLE'
xz    \xfd7zXZ\x00
zstd  \x28\xb5\x2f\xfd
gzip  \x1f\x8b\x08
TABLE
    cp "$image" "$vmlinux"
}

# module_files ROOT VERSION: the wanted modules and what they need, in the order to load them.
module_files() {
    local module
    for module in "${KERNEL_MODULES[@]}"; do
        # A cipher may be built in, or removed from a newer kernel: if one is missing, a job fails.
        modprobe -d "$1" -S "$2" --show-depends "$module" 2>/dev/null |
            sed -n 's/^insmod \([^ ]*\).*/\1/p' || true
    done | awk '!seen[$0]++'
}

copy_modules() {
    local root=$1 version=$2 target=$3 file name
    mkdir "$target"
    for file in $(module_files "$root" "$version"); do
        name=$(basename "$file" | sed 's/\.ko.*//')
        case $file in
        *.ko) cp "$file" "$target/$name.ko" ;;
        *) decompress "${file##*.}" "$file" >"$target/$name.ko" ;;
        esac
        printf '%s\n' "$name" >>"$target/order"
    done
    grep -qx mac80211_hwsim "$target/order" 2>/dev/null ||
        fail "kernel $version has no simulated radios (mac80211_hwsim); Debian's general kernel has"
}

# build_kernel FOLDER: vmlinux, modules/*.ko and modules/order, the order to load them in.
build_kernel() {
    local work=$1 root=$1/root package version
    step "fetching a kernel with simulated radios (once, about 70 MB)"
    { host_lists_serve && download_kernel "$work"; } ||
        { use_own_package_list "$work" && download_kernel "$work"; } ||
        fail "cannot download a kernel package ($(download_error "$work"));" \
            "check the network and the apt sources, then try again"
    for package in "$work"/*.deb; do dpkg -x "$package" "$root"; done
    version=$(basename "$root"/boot/vmlinuz-* | sed 's/^vmlinuz-//')
    # Where /lib is a link to /usr/lib, packages may hold the modules there.
    if [ ! -d "$root/lib/modules" ]; then ln -s usr/lib "$root/lib"; fi
    depmod -b "$root" "$version"
    extract_vmlinux "$root/boot/vmlinuz-$version" "$work/vmlinux"
    copy_modules "$root" "$version" "$work/modules"
    printf '%s\n' "$version" >"$work/version"
    rm -rf "$root" "$work"/*.deb "$work"/*.log "$work/apt"
}
