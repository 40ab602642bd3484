# The quick client takes the name of the host's client.
if(IS_SYMLINK ${PLATFORM_BOOT_DIR}/wpa_cli) # of an earlier configuration; the linker would write to its target
  file(REMOVE ${PLATFORM_BOOT_DIR}/wpa_cli)
endif()

boot_program(quick_client wpa_cli
  client/Arguments.cpp
  client/Connection.cpp
  client/HostClient.cpp
  client/Request.cpp
  client/Termination.cpp
  client/main.cpp
  ${SYSTEM}/OwnProgram.cpp
  $<$<BOOL:${PROGRAMS_USE_MUSL}>:client/GlibcNames.cpp>)
target_link_libraries(quick_client PRIVATE ${WPA_CLIENT_LIBRARY})

# The header stands beside those of glibc, which a program for musl must not include.
set(HEADER_COPY ${CMAKE_CURRENT_BINARY_DIR}/include)
file(COPY ${WPA_CLIENT_HEADERS}/wpa_ctrl.h DESTINATION ${HEADER_COPY})
target_include_directories(quick_client SYSTEM PRIVATE ${HEADER_COPY})
target_compile_definitions(quick_client PRIVATE PLATWIFI_VERSION="${PROJECT_VERSION}")
