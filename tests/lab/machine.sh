# What differs between the machines that the lab can start. Everything else is the same for all of them.
# shellcheck shell=bash
# shellcheck disable=SC2034 # for the files that scripts/lab sources

ARCHITECTURES=(x86_64 aarch64)

# Jars are the same for every machine.
JAR_BUILD_DIR=$SOURCE_DIR/build/release

# use_machine ARCHITECTURE: sets
#   emulator, machine   the program, and its options for the machine
#   console             the kernel's name of the serial port
#   kernel_options      for the kernel of this architecture alone
#   debian_name         the architecture as Debian's packages name it
#   general_kernels     the packages that stand for the newest general kernel; the first that is known is taken
#   root                the folder that becomes the root of the guest; empty for one of unpacked packages
#   java_home           of the guest
#   BUILD_DIR           the build whose programs the guest can run
use_machine() {
    case $1 in
    x86_64)
        emulator=qemu-system-x86_64 machine=(-M q35 -cpu max)
        # On a busy host no tick may come in time, and a kernel that checks its timer would panic.
        console=ttyS0 kernel_options=no_timer_check
        debian_name=amd64 general_kernels=(linux-image-amd64 linux-image-generic)
        root=/ java_home=${JAVA_HOME:-}
        BUILD_DIR=$SOURCE_DIR/build/release
        ;;
    aarch64)
        # To emulate pointer authentication takes most of the time, and the guest needs no such protection.
        emulator=qemu-system-aarch64 machine=(-M virt -cpu "max,pauth=off")
        console=ttyAMA0 kernel_options=''
        debian_name=arm64 general_kernels=(linux-image-arm64)
        root='' java_home=/usr/lib/jvm/default-java
        BUILD_DIR=$SOURCE_DIR/build/aarch64
        ;;
    *) return 1 ;;
    esac
}
