# 32-bit ARM with floating-point registers, by Debian's cross compiler; libraries of the target are those of
# packages like libssl-dev:armhf.
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(DEBIAN_TRIPLET arm-linux-gnueabihf)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/DebianCross.cmake)
