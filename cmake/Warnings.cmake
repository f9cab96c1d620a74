# One place for the compiler's warnings, the sanitizers and the visibility of symbols.
function(ledgerwick_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  # GCC 12 warns of a copy onto itself in text + std::string when it optimises; no such copy happens.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(LEDGERWICK_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
  if(LEDGERWICK_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${LEDGERWICK_SANITIZE}
                                             -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(${target} PUBLIC -fsanitize=${LEDGERWICK_SANITIZE})
  endif()
endfunction()
