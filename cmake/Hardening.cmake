# What makes an error in the shipped code harder to exploit; tests/hardening reads the built files. platwifi_hardened
# is linked by what is shipped, and by no test: those are compiled without optimisation, which _FORTIFY_SOURCE needs.
# All of it is for Release: a sanitizer has checks of its own, and they take the same functions.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

set(PLATWIFI_HARDENING -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
foreach(flag -fcf-protection=full -mbranch-protection=standard) # of x86 and of AArch64
  string(MAKE_C_IDENTIFIER "PLATWIFI_HAS${flag}" variable)
  set(CMAKE_REQUIRED_FLAGS -Werror) # clang only warns of a flag for other processors
  check_cxx_compiler_flag(${flag} ${variable})
  unset(CMAKE_REQUIRED_FLAGS)
  if(${variable})
    list(APPEND PLATWIFI_HARDENING ${flag})
  endif()
endforeach()

add_library(platwifi_hardened INTERFACE)
target_compile_options(platwifi_hardened INTERFACE "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${PLATWIFI_HARDENING}>")

# All functions of other libraries are found at once: the table of their addresses is read-only from then on, and a
# later call writes no memory.
set(PLATWIFI_HARDENED_LINK_OPTIONS -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)

# platwifi_harden(TARGET): a program or a library that is shipped. The objects of one alone, a test links as it likes.
function(platwifi_harden target)
  target_link_libraries(${target} PRIVATE platwifi_hardened)
  target_link_options(${target} PRIVATE ${PLATWIFI_HARDENED_LINK_OPTIONS})
endfunction()
