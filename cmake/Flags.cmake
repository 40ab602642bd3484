# Every target of ours links platwifi_flags: one place for warnings and sanitizers.
add_library(platwifi_flags INTERFACE)
target_compile_options(platwifi_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

if(PLATWIFI_SANITIZE)
  target_compile_options(platwifi_flags INTERFACE
    -fsanitize=${PLATWIFI_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(platwifi_flags INTERFACE -fsanitize=${PLATWIFI_SANITIZE})
endif()
