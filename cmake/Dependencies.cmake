# What the build takes from other packages. CMake looks for all of it before the configuration fails, so that one
# run names all that is missing. The blank in front keeps a message on one line.

# platwifi_need(FOUND WHAT PACKAGE WITHOUT): WITHOUT is how to configure a build that does not need it.
function(platwifi_need found what package without)
  get_property(reported GLOBAL PROPERTY PLATWIFI_MISSING)
  if(NOT found AND NOT what IN_LIST reported)
    set_property(GLOBAL APPEND PROPERTY PLATWIFI_MISSING "${what}")
    message(SEND_ERROR " ${what} is missing: install the Debian package ${package}, or configure with ${without}")
  endif()
endfunction()

# platwifi_prefer(FOUND WHAT PACKAGE INSTEAD): INSTEAD is what this build does without it.
function(platwifi_prefer found what package instead)
  if(NOT found)
    message(NOTICE "platwifi: ${what} is missing: ${instead} (Debian: ${package})")
  endif()
endfunction()
