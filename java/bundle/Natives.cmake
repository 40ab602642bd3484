# The native files of this build, stripped and in the installed layout, in the folder `natives`. They need no C++
# library of the system: some virtual machines contain their own, so that a small system has none.
set(NATIVES ${PROJECT_BINARY_DIR}/natives)
set(NATIVES_BOOT_DIR libexec/platwifi/boot)

# native_library(LIBRARY FOLDER RPATH): links the objects of a library anew.
function(native_library library folder rpath)
  set(target ${library}-native)
  add_library(${target} SHARED EXCLUDE_FROM_ALL)
  foreach(property COMPILE_OPTIONS INCLUDE_DIRECTORIES LINKER_LANGUAGE LINK_DEPENDS LINK_LIBRARIES LINK_OPTIONS
      SOVERSION VERSION)
    get_target_property(value ${library} ${property})
    if(value)
      set_target_properties(${target} PROPERTIES ${property} "${value}")
    endif()
  endforeach()

  get_target_property(definitions ${library} COMPILE_DEFINITIONS)
  if(definitions)
    list(TRANSFORM definitions REPLACE "^BOOT_FROM_HERE=.*" "BOOT_FROM_HERE=\"../../${NATIVES_BOOT_DIR}\"")
    target_compile_definitions(${target} PRIVATE ${definitions})
  endif()

  get_target_property(sources ${library} SOURCES)
  get_target_property(source_dir ${library} SOURCE_DIR)
  if(sources)
    list(TRANSFORM sources PREPEND ${source_dir}/ REGEX "^[^/$]")
    target_sources(${target} PRIVATE ${sources})
  endif()

  # Without exclude-libs the library would export the C++ library, and the linker could leave out nothing of it.
  target_link_options(${target} PRIVATE
    -static-libstdc++ -static-libgcc -Wl,--exclude-libs,ALL -Wl,--gc-sections -s)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME ${library}
    LIBRARY_OUTPUT_DIRECTORY ${NATIVES}/${folder}
    BUILD_WITH_INSTALL_RPATH ON
    INSTALL_RPATH ${rpath})
  set(NATIVE_FILES ${NATIVE_FILES} ${target} PARENT_SCOPE)
endfunction()

native_library(platwifi lib $ORIGIN/platwifi)
foreach(library platform zam platwificrypt)
  native_library(${library} lib/platwifi $ORIGIN)
endforeach()
if(TARGET platwifievents) # a part of the command line's sources
  native_library(platwifievents lib/platwifi $ORIGIN:$ORIGIN/..)
endif()

# A link to the host's client looks older than the quick client that it replaces.
set(CLIENT_IS_LINK NO)
if(IS_SYMLINK ${PROJECT_BINARY_DIR}/boot/wpa_cli)
  set(CLIENT_IS_LINK YES)
endif()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/client-is-link CONTENT ${CLIENT_IS_LINK})

# Beside the copies, so that these are made again after the folder was removed.
set(COPIED ${NATIVES}/programs.stamp)
set(BOOT_PROGRAMS pidin wpa_cli)
list(TRANSFORM BOOT_PROGRAMS PREPEND ${PROJECT_BINARY_DIR}/boot/)
add_custom_command(OUTPUT ${COPIED}
  COMMAND ${CMAKE_COMMAND} -D STRIP=${CMAKE_STRIP} -D FOLDER=${NATIVES}/${NATIVES_BOOT_DIR}
    "-DPROGRAMS=${BOOT_PROGRAMS}" -P ${CMAKE_CURRENT_LIST_DIR}/CopyPrograms.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${COPIED}
  DEPENDS boot_programs ${BOOT_PROGRAMS} ${CMAKE_CURRENT_LIST_DIR}/CopyPrograms.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/client-is-link VERBATIM)
list(APPEND NATIVE_FILES ${COPIED})

add_custom_target(natives DEPENDS ${NATIVE_FILES})
