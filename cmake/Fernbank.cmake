# Puts Fernbank beside a program that holds the static library, where the library looks for it:
#
#   ledgerwick_place_fernbank(my_program)
#
# Nothing is copied for the shared library, which has Fernbank in its own folder.
function(ledgerwick_place_fernbank program)
  get_target_property(type Ledgerwick::ledgerwick TYPE)
  if(type STREQUAL "STATIC_LIBRARY")
    add_custom_command(
      TARGET ${program}
      POST_BUILD
      COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:Ledgerwick::fernbank>
              $<TARGET_FILE_DIR:${program}>
      VERBATIM)
    get_target_property(imported Ledgerwick::fernbank IMPORTED)
    if(NOT imported)
      add_dependencies(${program} Ledgerwick::fernbank)
    endif()
  endif()
endfunction()
