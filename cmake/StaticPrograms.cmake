# static_program: links a program statically, with musl where there is one for this compiler: in a virtual machine
# the start of glibc takes longer than the rest of a short program, because it asks the processor for its features.
# Such a program has no part of the C++ library, whose headers are for glibc.
add_library(static_program INTERFACE)
target_link_options(static_program INTERFACE -static)

string(REPLACE "-gnu" "-musl" MUSL_NAME "${CMAKE_LIBRARY_ARCHITECTURE}")
find_file(MUSL_SPECS musl-gcc.specs PATHS /usr/lib/${MUSL_NAME} NO_DEFAULT_PATH) # Debian: musl-tools
if(MUSL_SPECS AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_CROSSCOMPILING)
  set(PROGRAMS_USE_MUSL ON)
  target_compile_options(static_program INTERFACE -specs=${MUSL_SPECS} -fno-pie)
  target_link_options(static_program INTERFACE -specs=${MUSL_SPECS} -no-pie)
endif()
