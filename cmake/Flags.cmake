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
