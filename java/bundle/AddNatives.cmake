# Adds the native files in each of FOLDERS, separated by colons, to JAR_FOLDER, below
# META-INF/native/linux-ARCHITECTURE, with an index that the Java class NativeIndex reads.
foreach(pair 3e00=x86_64 b700=aarch64 2800=armhf 0014=ppc)
  string(REPLACE = ";" pair ${pair})
  list(GET pair 0 machine)
  list(GET pair 1 OF_MACHINE_${machine})
endforeach()

# architecture(VARIABLE LIBRARY): that of an ELF file by the number of its machine.
function(architecture variable library)
  file(READ ${library} machine OFFSET 18 LIMIT 2 HEX)
  if(NOT OF_MACHINE_${machine})
    message(FATAL_ERROR "${library} is for a machine with the number ${machine}, which the jar has no name for: "
      "add it to ${CMAKE_CURRENT_LIST_FILE} and to Architecture.java")
  endif()
  set(${variable} linux-${OF_MACHINE_${machine}} PARENT_SCOPE)
endfunction()

# oldest_glibc(VARIABLE LIBRARY...): the highest version of which a library takes a function or a feature.
function(oldest_glibc variable)
  execute_process(COMMAND ${READELF} --version-info --wide ${ARGN}
    OUTPUT_VARIABLE versions COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE GLIBC_ABI_DT_RELR GLIBC_2.36 versions "${versions}") # relative relocations: glibc 2.36
  string(REGEX MATCHALL "GLIBC_[0-9.]+" versions "${versions}")
  list(SORT versions COMPARE NATURAL ORDER DESCENDING)
  list(GET versions 0 newest)
  string(REPLACE GLIBC_ "" newest ${newest})
  set(${variable} ${newest} PARENT_SCOPE)
endfunction()

# index_line(VARIABLE FOLDER FILE): what the index says about a file or a link.
function(index_line variable folder file)
  if(IS_SYMLINK ${folder}/${file})
    file(READ_SYMLINK ${folder}/${file} target)
    set(line "link ${target}")
  else()
    file(SIZE ${folder}/${file} size)
    file(SHA256 ${folder}/${file} digest)
    set(mode 0644)
    if(file MATCHES "^libexec/")
      set(mode 0755)
    endif()
    set(line "file ${mode} ${size} ${digest}")
  endif()
  set(${variable} "${line} ${file}\n" PARENT_SCOPE)
endfunction()

string(REPLACE : ";" FOLDERS ${FOLDERS})
foreach(folder ${FOLDERS})
  file(GLOB libraries ${folder}/lib/libplatwifi.so.*.*.*)
  if(NOT libraries)
    message(FATAL_ERROR "${folder} has no lib/libplatwifi.so.VERSION: build the target `natives` there")
  endif()
  architecture(name ${libraries})
  set(destination ${JAR_FOLDER}/META-INF/native/${name})
  if(EXISTS ${destination})
    message(FATAL_ERROR "${folder} is for ${name}, and so is a folder before it: name one in PLATWIFI_JAR_NATIVES")
  endif()

  file(GLOB private ${folder}/lib/platwifi/*.so)
  oldest_glibc(glibc ${libraries} ${private})
  set(index "glibc ${glibc}\n")
  file(GLOB_RECURSE files RELATIVE ${folder} ${folder}/lib/*.so.* ${folder}/lib/platwifi/*.so
    ${folder}/libexec/*)
  list(SORT files)
  foreach(file ${files})
    index_line(line ${folder} ${file})
    string(APPEND index "${line}")
    if(NOT IS_SYMLINK ${folder}/${file})
      configure_file(${folder}/${file} ${destination}/${file} COPYONLY)
    endif()
  endforeach()
  file(WRITE ${destination}/index "${index}")
endforeach()
