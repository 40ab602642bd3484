# platwifi_jar(TARGET OUTPUT jar SOURCES source... [JARS jar...] [MANIFEST line...]): compiles and
# packs one jar, again only when a source or a jar it compiles against has changed. The same sources
# give the same bytes. A jar to compile against is a file or another such TARGET; the target's
# property JAR_FILE tells its jar, JAR_SOURCES its sources.
find_program(JAVAC javac)
platwifi_need("${JAVAC}" "javac" default-jdk-headless "-DPLATWIFI_JAVA=OFF")
find_program(JAR jar)
platwifi_need("${JAR}" "jar" default-jdk-headless "-DPLATWIFI_JAVA=OFF")
set(JAVAC_WARNINGS -Xlint:all $<$<BOOL:${PLATWIFI_WERROR}>:-Werror> CACHE INTERNAL "What javac warns of")
# A compiler that runs for a second gains nothing from optimising itself.
set(JAVAC_START -J-XX:TieredStopAtLevel=1 -J-XX:+UseSerialGC CACHE INTERNAL "How javac starts")
set(PACK_JAR ${CMAKE_CURRENT_LIST_DIR}/PackJar.cmake CACHE INTERNAL "Packs compiled classes")

# The jar tool writes the file of a module anew, with the time of day unless an option gives another, from Java 17 on.
execute_process(COMMAND ${JAR} --help OUTPUT_VARIABLE help)
if(help MATCHES "--date=")
  set(JAR_DATE --date=2000-01-01T00:00:00Z CACHE INTERNAL "An option of the jar tool")
endif()

function(platwifi_jar target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "OUTPUT" "SOURCES;JARS;MANIFEST")
  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set(classes ${CMAKE_CURRENT_BINARY_DIR}/${target}.classes)

  set(manifest ${CMAKE_CURRENT_BINARY_DIR}/${target}.manifest)
  list(PREPEND arg_MANIFEST "Manifest-Version: 1.0")
  list(JOIN arg_MANIFEST "\n" lines)
  file(CONFIGURE OUTPUT ${manifest} CONTENT "${lines}\n" @ONLY)

  set(jars ${arg_JARS})
  list(TRANSFORM jars REPLACE "^([^/]+)$" "$<TARGET_PROPERTY:\\1,JAR_FILE>")
  set(class_path) # an empty one would be left out of the command
  if(jars)
    list(JOIN jars : class_path)
    list(PREPEND class_path -cp)
  endif()

  add_custom_command(OUTPUT ${arg_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${classes}
    COMMAND ${JAVAC} ${JAVAC_START} --release 11 -encoding UTF-8 -proc:none ${JAVAC_WARNINGS} -g
      -d ${classes} ${class_path} ${arg_SOURCES}
    COMMAND ${CMAKE_COMMAND} -D JAR=${JAR} -D DATE=${JAR_DATE} -D CLASSES=${classes} -D MANIFEST=${manifest}
      -D OUTPUT=${arg_OUTPUT} -P ${PACK_JAR}
    DEPENDS ${arg_SOURCES} ${arg_JARS} ${jars} ${manifest} ${PACK_JAR}
    COMMENT "Building ${arg_OUTPUT}" COMMAND_EXPAND_LISTS VERBATIM)
  add_custom_target(${target} ALL DEPENDS ${arg_OUTPUT})
  set_target_properties(${target} PROPERTIES JAR_FILE ${arg_OUTPUT} JAR_SOURCES "${arg_SOURCES}")
endfunction()
