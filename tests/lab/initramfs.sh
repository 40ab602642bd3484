# Packs the first programs of the guest: busybox, the modules and an init that hands over.
# shellcheck shell=bash

INITRAMFS_APPLETS=(sh mount mkdir insmod ln switch_root printf)

# build_initramfs FOLDER KERNEL_FOLDER BUSYBOX INIT: FOLDER/initramfs, uncompressed as that starts sooner.
build_initramfs() {
    local work=$1 kernel=$2 busybox=$3 init=$4 tree=$1/tree applet
    step "building the first file system of the guest (once)"
    mkdir -p "$tree"/{bin,dev,proc,out,host,root,changes,new}
    cp -L "$busybox" "$tree/bin/busybox"
    for applet in "${INITRAMFS_APPLETS[@]}"; do ln -s busybox "$tree/bin/$applet"; done
    cp -R "$kernel/modules" "$tree/modules"
    cp "$init" "$tree/init"
    chmod 755 "$tree/init" "$tree/bin/busybox"
    (cd "$tree" && find . | cpio -o -H newc --owner=0:0 --quiet) >"$work/initramfs"
    rm -rf "$tree"
}
