# OpenSSL's headers, for the cipher behind Crypt: the library itself is loaded when the cipher is first used. A cross
# build needs those of the target, which the target's compiler must read.
find_package(OpenSSL 3.0 COMPONENTS Crypto)
if(OpenSSL_FOUND AND CMAKE_CROSSCOMPILING)
  include(CheckIncludeFileCXX)
  set(CMAKE_REQUIRED_INCLUDES ${OPENSSL_INCLUDE_DIR})
  check_include_file_cxx(openssl/evp.h OPENSSL_IS_OF_THE_TARGET)
  unset(CMAKE_REQUIRED_INCLUDES)
  set(OpenSSL_FOUND ${OPENSSL_IS_OF_THE_TARGET})
endif()
platwifi_need("${OpenSSL_FOUND}" "libcrypto" libssl-dev "-DPLATWIFI_CRYPTO=OFF")
