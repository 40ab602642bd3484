# What `cmake --install` puts where (docs/installing.md). Programs, and what belongs to one, are
# installed by the folder that makes them.
include(CMakePackageConfigHelpers)

#
# Each file is of one component: runtime (what the library needs), development, tools (the command line) or java.
set(LINKABLE platwifi platform zam)
install(TARGETS platwifi EXPORT platwifi
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  INCLUDES DESTINATION ${PLATWIFI_INCLUDE_DIR})
install(TARGETS platform zam EXPORT platwifi
  LIBRARY DESTINATION ${PLATWIFI_PRIVATE_LIBRARY_DIR} COMPONENT runtime
  INCLUDES DESTINATION ${PLATWIFI_INCLUDE_DIR})
if(PLATWIFI_NATIVES)
  install(TARGETS platwificrypt LIBRARY DESTINATION ${PLATWIFI_PRIVATE_LIBRARY_DIR} COMPONENT java)
endif()
set_target_properties(platwifi PROPERTIES INSTALL_RPATH $ORIGIN/${PLATWIFI_LIBRARY_TO_PRIVATE})

# A program that calls the private libraries itself finds them where they are installed.
foreach(library platform zam)
  target_link_options(${library} INTERFACE
    "$<INSTALL_INTERFACE:LINKER:-rpath,$<INSTALL_PREFIX>/${PLATWIFI_PRIVATE_LIBRARY_DIR}>")
endforeach()

# The flat functions and the exported classes, with the headers that these include.
foreach(header
    Export.h
    jni/ServiceFunctions.h
    model/WifiNetwork.h
    model/WifiNetworkList.h
    model/WifiTypes.h
    platwifi.h
    settings/WifiHostSettings.h
    supplicant/WifiUtil.h
    watchdog/LocalSignal.h
    watchdog/WifiHostSettingsWatchdog.h)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/src/${header} DESTINATION ${PLATWIFI_INCLUDE_DIR}/${folder}
    COMPONENT development)
endforeach()
if(NOT PLATWIFI_NATIVES) # these include jni.h
  set(JAVA_HEADERS PATTERN JNIString.h EXCLUDE PATTERN JavaExceptionHandler.h EXCLUDE PATTERN JavaText.h EXCLUDE)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/include/ DESTINATION ${PLATWIFI_INCLUDE_DIR}
  COMPONENT development FILES_MATCHING PATTERN *.h ${JAVA_HEADERS})

if(PLATWIFI_JAVA)
  install(FILES $<TARGET_PROPERTY:platwifi-jar,JAR_FILE> DESTINATION ${CMAKE_INSTALL_DATADIR}/java
    COMPONENT java)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/docs/wifiHostSettings.xsd
  DESTINATION ${CMAKE_INSTALL_DATADIR}/platwifi COMPONENT development)
install(FILES
  ${PROJECT_SOURCE_DIR}/docs/after-connecting.md
  ${PROJECT_SOURCE_DIR}/docs/examples/50-wifi.network
  ${PROJECT_SOURCE_DIR}/docs/examples/90-wifi-unmanaged.conf
  ${PROJECT_SOURCE_DIR}/docs/examples/private-tmp.conf
  ${PROJECT_SOURCE_DIR}/docs/examples/wifi-service.service
  ${PROJECT_SOURCE_DIR}/docs/examples/wifi-supplicant@.service
  ${PROJECT_SOURCE_DIR}/docs/examples/wpa_supplicant.conf
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)

include(ManualPages)
install(FILES ${PROJECT_SOURCE_DIR}/docs/examples/networks.py
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT development)

# find_package(platwifi)
foreach(target ${LINKABLE})
  target_compile_features(${target} INTERFACE cxx_std_17)
endforeach()
install(EXPORT platwifi NAMESPACE platwifi:: FILE platwifi-targets.cmake
  DESTINATION ${PLATWIFI_PACKAGE_DIR} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/platwifi-config.cmake.in
  ${PROJECT_BINARY_DIR}/platwifi-config.cmake INSTALL_DESTINATION ${PLATWIFI_PACKAGE_DIR}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/platwifi-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/platwifi-config.cmake
  ${PROJECT_BINARY_DIR}/platwifi-config-version.cmake
  DESTINATION ${PLATWIFI_PACKAGE_DIR} COMPONENT development)

# pkg-config platwifi
path_between(PKGCONFIG_TO_LIBRARY ${PLATWIFI_PKGCONFIG_DIR} ${CMAKE_INSTALL_LIBDIR})
path_between(PKGCONFIG_TO_PRIVATE ${PLATWIFI_PKGCONFIG_DIR} ${PLATWIFI_PRIVATE_LIBRARY_DIR})
path_between(PKGCONFIG_TO_INCLUDE ${PLATWIFI_PKGCONFIG_DIR} ${PLATWIFI_INCLUDE_DIR})
configure_file(${CMAKE_CURRENT_LIST_DIR}/platwifi.pc.in ${PROJECT_BINARY_DIR}/platwifi.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/platwifi.pc DESTINATION ${PLATWIFI_PKGCONFIG_DIR}
  COMPONENT development)
