# What this folder has of the platform library. BootFolders.cpp is compiled for each program that contains it.
set(SYSTEM_SOURCES
  AttachLock.cpp
  ChildPause.cpp
  Descriptors.cpp
  Environment.cpp
  FolderClaim.cpp
  LockFile.cpp
  PlatformUtil.cpp
  SharedMemory.cpp
  ThreadNumber.cpp
  UnnamedFile.cpp
  WordWait.cpp)

# The C library hides what is not of POSIX.1-2008. A C++ compiler on Linux shows everything otherwise.
target_compile_options(platform_system INTERFACE -U_GNU_SOURCE)
target_compile_definitions(platform_system INTERFACE _POSIX_C_SOURCE=200809L _XOPEN_SOURCE=700)
