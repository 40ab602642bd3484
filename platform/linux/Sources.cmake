# What this folder has of the platform library. BootFolders.cpp is compiled for each program that contains it.
set(SYSTEM_SOURCES
  ChildPause.cpp
  Descriptors.cpp
  Environment.cpp
  FolderClaim.cpp
  PlatformUtil.cpp
  SharedMemory.cpp
  UnnamedFile.cpp
  WordWait.cpp)
if(PLATWIFI_SANITIZE STREQUAL thread)
  list(APPEND SYSTEM_SOURCES ThreadSanitizer.cpp)
endif()
