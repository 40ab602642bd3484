# The host's client takes the place of the quick one.
find_program(WPA_CLI wpa_cli PATHS /sbin /usr/sbin)
if(NOT WPA_CLI)
  set(WPA_CLI /sbin/wpa_cli)
  platwifi_prefer(OFF "wpa_cli" wpasupplicant
    "${PLATFORM_BOOT_DIR}/wpa_cli points to ${WPA_CLI}, where it is expected once it is installed")
endif()
file(CREATE_LINK ${WPA_CLI} ${PLATFORM_BOOT_DIR}/wpa_cli SYMBOLIC)
install(FILES ${PLATFORM_BOOT_DIR}/wpa_cli DESTINATION ${PLATWIFI_BOOT_DIR} COMPONENT runtime)
