# What the toolchain files for Debian's other architectures have in common. Each sets DEBIAN_TRIPLET.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${DEBIAN_TRIPLET}-gcc) # of GoogleTest's sources
set(CMAKE_CXX_COMPILER ${DEBIAN_TRIPLET}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${DEBIAN_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
# pkg-config would name the libraries of the building machine.
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/${DEBIAN_TRIPLET}/pkgconfig:/usr/share/pkgconfig)
