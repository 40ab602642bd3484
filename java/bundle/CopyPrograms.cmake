# Copies PROGRAMS into FOLDER without the names of their functions. A link, which the host's client is, stays one.
file(REMOVE_RECURSE ${FOLDER})
file(COPY ${PROGRAMS} DESTINATION ${FOLDER})
file(GLOB copies ${FOLDER}/*)
foreach(copy ${copies})
  if(NOT IS_SYMLINK ${copy})
    execute_process(COMMAND ${STRIP} ${copy} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
