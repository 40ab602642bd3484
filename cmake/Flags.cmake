# Every target of ours links platwifi_flags: one place for warnings and sanitizers.
add_library(platwifi_flags INTERFACE)
target_compile_options(platwifi_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

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

# What is shipped is compiled for size: a device has little memory. The path of the natives that read a
# field and of the document is compiled for speed, see platwifi_is_quick().
add_library(platwifi_shipped INTERFACE)
target_link_libraries(platwifi_shipped INTERFACE platwifi_flags)
target_compile_options(platwifi_shipped INTERFACE $<$<CONFIG:Release>:-Os>)

# Link-time optimisation removes a tenth of the code. Objects have ordinary code, too: a test that links
# them needs no optimisation, and says so by -fno-lto. clang's objects cannot have both.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(platwifi_shipped INTERFACE $<$<CONFIG:Release>:-flto -ffat-lto-objects>)
  target_link_options(platwifi_shipped INTERFACE $<$<CONFIG:Release>:-flto=auto -Os>)
endif()

# Relative relocations take an eighth of a byte in place of 24 bytes. The loader of the target must know
# them: that of glibc does since 2.36.
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
check_cxx_source_compiles("
  #include <features.h>
  #if !__GLIBC_PREREQ(2, 36)
  #error the loader does not know them
  #endif
  int main() {}" PLATWIFI_HAS_RELR_LOADER)
check_linker_flag(CXX -Wl,-z,pack-relative-relocs,--fatal-warnings PLATWIFI_HAS_RELR_LINKER)
if(PLATWIFI_HAS_RELR_LOADER AND PLATWIFI_HAS_RELR_LINKER)
  target_link_options(platwifi_shipped INTERFACE -Wl,-z,pack-relative-relocs)
endif()

# platwifi_is_quick(SOURCE...): sources of this folder whose speed matters more than their size.
function(platwifi_is_quick)
  set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS $<$<CONFIG:Release>:-O3>)
endfunction()
