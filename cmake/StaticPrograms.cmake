# static_program: links a program statically, with musl where there is one for this compiler: in a virtual machine
# the start of glibc takes longer than the rest of a short program, because it asks the processor for its features.
# Such a program has no part of the C++ library, whose headers are for glibc.
#
# The program can be loaded anywhere (STATIC_PROGRAMS_ARE_PIE) where the compiler can link it so. It then finds its own
# addresses when it starts, which costs one page of memory and no system call.
add_library(static_program INTERFACE)

string(REPLACE "-gnu" "-musl" MUSL_NAME "${CMAKE_LIBRARY_ARCHITECTURE}")
set(MUSL_FOLDER /usr/lib/${MUSL_NAME}) # Debian: musl-tools
find_file(MUSL_SPECS musl-gcc.specs PATHS ${MUSL_FOLDER} NO_DEFAULT_PATH)
if(MUSL_SPECS AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_CROSSCOMPILING)
  set(PROGRAMS_USE_MUSL ON)
  set(STATIC_PROGRAMS_ARE_PIE ON)
  # The file of Debian has no rules for a static program that can be loaded anywhere.
  set(STATIC_PIE_SPECS ${PROJECT_BINARY_DIR}/static-pie.specs)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/static-pie.specs.in ${STATIC_PIE_SPECS} @ONLY)
  target_compile_options(static_program INTERFACE -specs=${MUSL_SPECS})
  target_link_options(static_program INTERFACE -specs=${MUSL_SPECS} -specs=${STATIC_PIE_SPECS} -static)
else()
  if(NOT CMAKE_CROSSCOMPILING)
    platwifi_prefer("${MUSL_SPECS}" "musl's compiler" musl-tools
      "the programs of the boot directory are linked with the system's C library, and start later")
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_FLAGS -fPIE)
    set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie)
    check_cxx_source_compiles("int main() {}" STATIC_PROGRAMS_ARE_PIE)
    unset(CMAKE_REQUIRED_FLAGS)
    unset(CMAKE_REQUIRED_LINK_OPTIONS)
  endif()
  target_link_options(static_program INTERFACE $<IF:$<BOOL:${STATIC_PROGRAMS_ARE_PIE}>,-static-pie,-static>)
endif()
