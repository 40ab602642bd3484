# Packs the files in the directory CLASSES with MANIFEST into the jar OUTPUT. A jar holds times and an order of
# its files: both are fixed here, so that a rebuild gives the same bytes.
configure_file(${MANIFEST} ${CLASSES}/META-INF/MANIFEST.MF COPYONLY)
file(GLOB_RECURSE files RELATIVE ${CLASSES} ${CLASSES}/*)
list(REMOVE_ITEM files META-INF/MANIFEST.MF) # must be the first
list(SORT files)
list(PREPEND files META-INF/MANIFEST.MF)

set(ENV{TZ} UTC)
cmake_path(GET OUTPUT PARENT_PATH directory)
file(MAKE_DIRECTORY ${directory})
foreach(command "touch;-d;2000-01-01 00:00:00;${files}" 
    "${JAR};--create;--no-manifest;--file=${OUTPUT};${DATE};${files}")
  execute_process(COMMAND ${command} WORKING_DIRECTORY ${CLASSES} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
