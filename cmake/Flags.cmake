# Every target of ours links platwifi_flags: one place for warnings and sanitizers.
add_library(platwifi_flags INTERFACE)
target_compile_options(platwifi_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${PLATWIFI_WERROR}>:-Werror>)

if(PLATWIFI_SANITIZE)
  target_compile_options(platwifi_flags INTERFACE
    -fsanitize=${PLATWIFI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(platwifi_flags INTERFACE -fsanitize=${PLATWIFI_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    # The Java environment of the tests fills its table with one function.
    target_compile_options(platwifi_flags INTERFACE -fno-sanitize=function -Wreserved-identifier)
    target_link_options(platwifi_flags INTERFACE -fuse-ld=lld) # five times as fast with sanitizers
  endif()
endif()

if(PLATWIFI_FUZZ) # counts what an input reaches
  target_compile_options(platwifi_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# One compiler takes several sources of a target together, and reads their headers once. The linter is configured without
# it, and so finds a source that needs the headers of another.
if(NOT DEFINED CMAKE_UNITY_BUILD)
  set(CMAKE_UNITY_BUILD ON)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE 16)
endif()
# What is local to a source is local to an included file there, which gcc takes for a header. It takes 50 MB more for a
# batch when it does not collect what it no longer needs, and a sixteenth less time.
if(CMAKE_UNITY_BUILD)
  add_compile_options("$<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-subobject-linkage;--param=ggc-min-heapsize=2000000>")
endif()

# compiled_alone(SOURCE...): sources of this folder that go into no batch: both have the same local name, or the linker
# takes one without the other for some program.
function(compiled_alone)
  set_source_files_properties(${ARGV} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

include(Hardening)

# What is shipped is compiled for size: a device has little memory. The path of the natives that read a
# field and of the document is compiled for speed, see platwifi_is_quick(). A linker that optimises leaves out a
# tenth of the code. The objects have ordinary code, too, for tests that link them without that; clang has none
# of both kinds.
add_library(platwifi_shipped INTERFACE)
target_link_libraries(platwifi_shipped INTERFACE platwifi_hardened)
target_compile_options(platwifi_shipped INTERFACE $<$<CONFIG:Release>:-Os>)
set(PLATWIFI_SHIPPED_LINK_OPTIONS)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(platwifi_shipped INTERFACE $<$<CONFIG:Release>:-flto -ffat-lto-objects -fno-plt>)
  list(APPEND PLATWIFI_SHIPPED_LINK_OPTIONS $<$<CONFIG:Release>:-flto=auto> $<$<CONFIG:Release>:-flto-partition=one> $<$<CONFIG:Release>:-Os>)
endif()

# A relative relocation takes an eighth of a byte in place of 24 bytes, where the loader of the target knows this
# form: that of glibc does since 2.36. Some linkers ignore the option with a warning, which is an error only behind the
# option that makes it one.
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
check_cxx_source_compiles("
  #include <features.h>
  #if !__GLIBC_PREREQ(2, 36)
  #error an older loader
  #endif
  int main() {}" PLATWIFI_HAS_RELR_LOADER)
check_linker_flag(CXX -Wl,--fatal-warnings,-z,pack-relative-relocs PLATWIFI_HAS_RELR_LINKER)
if(PLATWIFI_HAS_RELR_LOADER AND PLATWIFI_HAS_RELR_LINKER)
  list(APPEND PLATWIFI_SHIPPED_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
endif()

# platwifi_ship(LIBRARY): compiles and links a shared library as above. Its objects alone, a test links as it likes.
function(platwifi_ship library)
  target_link_libraries(${library} PRIVATE platwifi_flags platwifi_shipped)
  platwifi_harden(${library})
  target_link_options(${library} PRIVATE ${PLATWIFI_SHIPPED_LINK_OPTIONS})
endfunction()

# platwifi_is_quick(LEVEL SOURCE...): sources of this folder whose speed matters more than their size.
function(platwifi_is_quick level)
  set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:${level}>)
endfunction()
