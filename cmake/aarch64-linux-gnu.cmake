# 64-bit ARM, by Debian's cross compiler; libraries of the target are those of packages like libssl-dev:arm64.
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(DEBIAN_TRIPLET aarch64-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/DebianCross.cmake)
