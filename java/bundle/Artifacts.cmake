# platwifi-VERSION.jar and its neighbours in a Maven repository, each packed again only when its sources changed.
find_program(JAVADOC javadoc)
platwifi_need("${JAVADOC}" "javadoc" default-jdk-headless "-DPLATWIFI_JAVA=OFF")
set(ARTIFACT ${PROJECT_BINARY_DIR}/java/platwifi-${PROJECT_VERSION})
set(JAVA_SOURCE_DIR ${PROJECT_SOURCE_DIR}/java)
set(PARTS ${CMAKE_CURRENT_BINARY_DIR})
get_target_property(JAVA_SOURCES platwifi-jar JAR_SOURCES)

# Enable-Native-Access is for a program that is started by `java -jar`: Java reads it of that jar alone.
file(CONFIGURE OUTPUT ${PARTS}/manifest CONTENT "Manifest-Version: 1.0
Enable-Native-Access: ALL-UNNAMED
Implementation-Title: platwifi
Implementation-Version: ${PROJECT_VERSION}
")

# pack(FOLDER SUFFIX COMMAND...): the commands fill the folder, which becomes the jar with this suffix.
function(pack folder suffix)
  add_custom_command(OUTPUT ${ARTIFACT}${suffix}.jar
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${PARTS}/${folder}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PARTS}/${folder}
    ${ARGN}
    COMMAND ${CMAKE_COMMAND} -D JAR=${JAR} -D DATE=${JAR_DATE} -D CLASSES=${PARTS}/${folder}
      -D MANIFEST=${PARTS}/manifest -D OUTPUT=${ARTIFACT}${suffix}.jar -P ${PACK_JAR}
    DEPENDS ${PARTS}/manifest ${PACK_JAR} ${JAVA_SOURCES}
    COMMENT "Building ${ARTIFACT}${suffix}.jar" VERBATIM)
endfunction()

set(FOLDERS ${NATIVES})
foreach(folder ${PLATWIFI_JAR_NATIVES})
  cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY ${PROJECT_SOURCE_DIR} NORMALIZE)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${folder}/*)
  list(APPEND FOLDERS ${folder})
  list(APPEND NATIVE_FILES ${files})
endforeach()

list(JOIN FOLDERS : folders)

get_target_property(classes platwifi-jar JAR_FILE)
pack(bundle ""
  COMMAND ${CMAKE_COMMAND} -E chdir ${PARTS}/bundle ${JAR} xf ${classes}
  COMMAND ${CMAKE_COMMAND} -D FOLDERS=${folders} -D JAR_FOLDER=${PARTS}/bundle
    -D READELF=${CMAKE_READELF} -P ${CMAKE_CURRENT_LIST_DIR}/AddNatives.cmake
  DEPENDS platwifi-jar ${classes} ${NATIVE_FILES} ${CMAKE_CURRENT_LIST_DIR}/AddNatives.cmake)

pack(sources -sources
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${JAVA_SOURCE_DIR}/com ${PARTS}/sources/com
  COMMAND ${CMAKE_COMMAND} -E copy ${JAVA_SOURCE_DIR}/module-info.java ${PARTS}/sources)

pack(javadoc -javadoc
  COMMAND ${JAVADOC} ${JAVAC_START} -quiet -notimestamp -Xdoclint:all,-missing --release 11 -encoding UTF-8
    -d ${PARTS}/javadoc ${JAVA_SOURCES})

configure_file(platwifi.pom.in ${ARTIFACT}.pom @ONLY)

set(FILES ${ARTIFACT}.jar ${ARTIFACT}-sources.jar ${ARTIFACT}-javadoc.jar)
add_custom_target(platwifi-bundle ALL DEPENDS ${FILES})
install(FILES ${FILES} ${ARTIFACT}.pom DESTINATION com/quorvel/platwifi/platwifi/${PROJECT_VERSION}
  COMPONENT maven EXCLUDE_FROM_ALL)
