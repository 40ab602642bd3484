# Where things are installed, and how they find each other there: by paths from one to the other, so
# that a whole installation may be moved.
include(GNUInstallDirs)

set(PLATWIFI_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/platwifi)
set(PLATWIFI_PRIVATE_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/platwifi) # what only these libraries and their callers load
set(PLATWIFI_BOOT_DIR ${CMAKE_INSTALL_LIBEXECDIR}/platwifi/boot)
set(PLATWIFI_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/platwifi)
set(PLATWIFI_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# path_between(VARIABLE FROM TO): how to get from one of the places above to another.
function(path_between variable from to)
  cmake_path(ABSOLUTE_PATH from BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
  cmake_path(ABSOLUTE_PATH to BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
  cmake_path(RELATIVE_PATH to BASE_DIRECTORY ${from})
  set(${variable} ${to} PARENT_SCOPE)
endfunction()

path_between(PLATWIFI_LIBRARY_TO_PRIVATE ${CMAKE_INSTALL_LIBDIR} ${PLATWIFI_PRIVATE_LIBRARY_DIR})
path_between(PLATWIFI_PRIVATE_TO_LIBRARY ${PLATWIFI_PRIVATE_LIBRARY_DIR} ${CMAKE_INSTALL_LIBDIR})
path_between(PLATWIFI_PRIVATE_TO_BOOT ${PLATWIFI_PRIVATE_LIBRARY_DIR} ${PLATWIFI_BOOT_DIR})
path_between(PLATWIFI_PROGRAM_TO_BOOT ${CMAKE_INSTALL_BINDIR} ${PLATWIFI_BOOT_DIR})

# The private libraries are side by side.
set(CMAKE_INSTALL_RPATH $ORIGIN)
