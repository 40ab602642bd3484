# Compares types, parameters and virtual tables with a recorded interface. That takes debug information, which the
# shipped library does not have: a library of the sources that define what is exported, the natives apart, is
# built for the test alone. It is never run, so it may lack the rest.
set(SOURCES ${PROJECT_SOURCE_DIR}/src)
add_library(platwifi_interface SHARED EXCLUDE_FROM_ALL
  ${SOURCES}/jni/CFunctions.cpp
  ${SOURCES}/jni/ServiceFunctions.cpp
  ${SOURCES}/model/WifiNetwork.cpp
  ${SOURCES}/model/WifiNetworkList.cpp
  ${SOURCES}/settings/WifiHostSettings.cpp
  ${SOURCES}/settings/WifiHostSettingsLoad.cpp
  ${SOURCES}/settings/WifiHostSettingsOperations.cpp
  ${SOURCES}/settings/WifiHostSettingsSave.cpp
  ${SOURCES}/settings/WifiHostSettingsStatus.cpp
  ${SOURCES}/settings/report/WifiHostSettingsDump.cpp
  ${SOURCES}/settings/report/WifiHostSettingsXml.cpp
  ${SOURCES}/supplicant/WifiUtilBsd.cpp
  ${SOURCES}/supplicant/WifiUtilCommands.cpp
  ${SOURCES}/supplicant/WifiUtilQueries.cpp
  ${SOURCES}/watchdog/WifiHostSettingsWatchdog.cpp)
target_include_directories(platwifi_interface PRIVATE ${SOURCES} ${PROJECT_SOURCE_DIR}/platform/include)
target_compile_definitions(platwifi_interface PRIVATE PLATWIFI_VERSION="${PROJECT_VERSION}")
target_link_libraries(platwifi_interface PRIVATE platwifi_flags)
# Types of the standard library are named, not described.
target_compile_options(platwifi_interface PRIVATE -g -femit-struct-debug-detailed=ord:any,gen:none)
target_link_options(platwifi_interface PRIVATE
  -Wl,--version-script=${SOURCES}/platwifi.map -Wl,--unresolved-symbols=ignore-all
  -Wl,-soname,libplatwifi.so.${PROJECT_VERSION_MAJOR})
set_target_properties(platwifi_interface PROPERTIES
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests
  LINK_DEPENDS ${SOURCES}/platwifi.map
  NO_SONAME ON)

set(RECORD ${CMAKE_CURRENT_SOURCE_DIR}/libplatwifi.abi)
add_test(NAME build_interface
  COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target platwifi_interface)
set_tests_properties(build_interface PROPERTIES LABELS exports FIXTURES_SETUP interface TIMEOUT 900)
add_test(NAME interface_test COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/interface
  $<TARGET_FILE:platwifi_interface> ${RECORD})
add_test(NAME interface_names_test COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/run
  $<TARGET_FILE:platwifi_interface> ${CMAKE_CURRENT_SOURCE_DIR}/libplatwifi.txt --without-natives)
set_tests_properties(interface_test interface_names_test PROPERTIES
  LABELS exports FIXTURES_REQUIRED interface SKIP_RETURN_CODE 77 TIMEOUT 300)

# cmake --build --preset release --target record-interface
add_custom_target(record-interface
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/interface --record $<TARGET_FILE:platwifi_interface> ${RECORD}
  DEPENDS platwifi_interface VERBATIM)
