# Installs the library, the kit, the command and the package that find_package(Ledgerwick) reads.
# Runtime is what a built host needs, Sqlite and Postgres the stores, Development what building a host
# needs, Command the program.
include(CMakePackageConfigHelpers)

set(LEDGERWICK_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Ledgerwick)
set(LEDGERWICK_BASH_COMPLETION_DIR ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    CACHE STRING "Where bash looks for completions")
set(LEDGERWICK_ZSH_COMPLETION_DIR ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
    CACHE STRING "Where zsh looks for completions")

# A library with its links: ledgerwick_install_library(TARGET EXPORT_SET [COMPONENT])
function(ledgerwick_install_library target export)
  set(component Runtime ${ARGN})
  list(POP_BACK component component)
  install(
    TARGETS ${target}
    EXPORT ${export}
    RUNTIME COMPONENT ${component}
    LIBRARY COMPONENT ${component} NAMELINK_COMPONENT Development
    ARCHIVE COMPONENT Development)
endfunction()

function(ledgerwick_install_pkg_config name)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
          COMPONENT Development)
endfunction()

# Every header is a host's to include, but for those named in internal_headers.txt.
file(STRINGS cmake/internal_headers.txt internal_headers)
set(internal_patterns "")
foreach(header ${internal_headers})
  list(APPEND internal_patterns REGEX "/${header}$" EXCLUDE)
endforeach()

foreach(store sqlite postgres)
  if(NOT TARGET ledgerwick_${store})
    list(APPEND internal_patterns PATTERN hostkit/${store} EXCLUDE)
  endif()
endforeach()

# The headers of one of the project's folders: ledgerwick_install_headers(FOLDER)
function(ledgerwick_install_headers folder)
  install(DIRECTORY ${folder} DESTINATION ${LEDGERWICK_INCLUDE_DIR} COMPONENT Development
          FILES_MATCHING PATTERN "*.h" ${internal_patterns})
endfunction()

# The package is found from its own folder upwards, wherever it has been moved to.
file(RELATIVE_PATH LEDGERWICK_PC_TO_PREFIX
     /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
set(LEDGERWICK_PC_STATIC "")
set(LEDGERWICK_HOSTKIT_PC_STATIC "")
set(LEDGERWICK_C_PC_STATIC "")
set(LEDGERWICK_SQLITE_PC_REQUIRES "")
set(LEDGERWICK_POSTGRES_PC_REQUIRES "")
if(NOT BUILD_SHARED_LIBS)
  set(LEDGERWICK_PC_STATIC "-DLEDGERWICK_STATIC")
  set(LEDGERWICK_HOSTKIT_PC_STATIC "-DLEDGERWICK_HOSTKIT_STATIC")
  set(LEDGERWICK_C_PC_STATIC "-DLEDGERWICK_C_STATIC")
  set(LEDGERWICK_SQLITE_PC_REQUIRES ", sqlite3")
  set(LEDGERWICK_POSTGRES_PC_REQUIRES ", libpq")
endif()

ledgerwick_install_library(ledgerwick LedgerwickTargets)
ledgerwick_install_headers(ledgerwick)
ledgerwick_install_pkg_config(ledgerwick)
install(EXPORT LedgerwickTargets NAMESPACE Ledgerwick:: DESTINATION ${LEDGERWICK_PACKAGE_DIR}
        COMPONENT Development)

if(LEDGERWICK_WITH_HOSTKIT)
  ledgerwick_install_library(ledgerwick_hostkit LedgerwickHostkitTargets)
  ledgerwick_install_headers(hostkit)
  ledgerwick_install_pkg_config(ledgerwick-hostkit)
  ledgerwick_install_library(ledgerwick_c LedgerwickCTargets)
  ledgerwick_install_pkg_config(ledgerwick-c)
  install(FILES capi/ledgerwick_c.h DESTINATION ${LEDGERWICK_INCLUDE_DIR} COMPONENT Development)
  # Fernbank is looked for in the library's own folder, and by a static library in the program's.
  set(fernbank_folder ${CMAKE_INSTALL_LIBDIR})
  if(NOT BUILD_SHARED_LIBS)
    set(fernbank_folder ${CMAKE_INSTALL_BINDIR})
  endif()
  install(TARGETS fernbank EXPORT LedgerwickHostkitTargets LIBRARY DESTINATION ${fernbank_folder}
          COMPONENT Runtime)
  install(EXPORT LedgerwickHostkitTargets NAMESPACE Ledgerwick::
          DESTINATION ${LEDGERWICK_PACKAGE_DIR} COMPONENT Development)
  install(EXPORT LedgerwickCTargets NAMESPACE Ledgerwick::
          DESTINATION ${LEDGERWICK_PACKAGE_DIR} COMPONENT Development)
endif()
if(TARGET ledgerwick_sqlite)
  ledgerwick_install_library(ledgerwick_sqlite LedgerwickSqliteTargets Sqlite)
  install(EXPORT LedgerwickSqliteTargets NAMESPACE Ledgerwick::
          DESTINATION ${LEDGERWICK_PACKAGE_DIR} COMPONENT Development)
  ledgerwick_install_pkg_config(ledgerwick-sqlite)
  install(FILES hostkit/sqlite/schema.sql DESTINATION ${CMAKE_INSTALL_DATADIR}/ledgerwick
          COMPONENT Command)
endif()
if(TARGET ledgerwick_postgres)
  ledgerwick_install_library(ledgerwick_postgres LedgerwickPostgresTargets Postgres)
  install(EXPORT LedgerwickPostgresTargets NAMESPACE Ledgerwick::
          DESTINATION ${LEDGERWICK_PACKAGE_DIR} COMPONENT Development)
  ledgerwick_install_pkg_config(ledgerwick-postgres)
endif()
# The Python package, where the system's Python looks for such: packaging/build-deb names the folder.
if(LEDGERWICK_WITH_HOSTKIT AND LEDGERWICK_PYTHON_DIR)
  file(STRINGS bindings/python/ledgerwick/__init__.py version REGEX "^__version__")
  if(NOT version STREQUAL "__version__ = \"${PROJECT_VERSION}\"")
    message(FATAL_ERROR "bindings/python has another version: ${version}")
  endif()
  find_package(Python3 3.9 REQUIRED COMPONENTS Interpreter)
  set(dist_info ledgerwick-${PROJECT_VERSION}.dist-info)
  execute_process(
    COMMAND ${Python3_EXECUTABLE} -B bindings/python/build_backend/ledgerwick_build.py
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/METADATA COMMAND_ERROR_IS_FATAL ANY)
  install(DIRECTORY bindings/python/ledgerwick DESTINATION ${LEDGERWICK_PYTHON_DIR} COMPONENT Python
          FILES_MATCHING PATTERN "*.py" PATTERN py.typed PATTERN __pycache__ EXCLUDE)
  install(FILES ${PROJECT_BINARY_DIR}/METADATA DESTINATION ${LEDGERWICK_PYTHON_DIR}/${dist_info}
          COMPONENT Python)
endif()
if(TARGET ledgerwick_command)
  install(TARGETS ledgerwick_command RUNTIME COMPONENT Command)
  install(DIRECTORY examples/company DESTINATION ${CMAKE_INSTALL_DATADIR}/ledgerwick/examples
          COMPONENT Command)
  install(FILES docs/man/ledgerwick.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Command)
  install(FILES packaging/completion/ledgerwick.bash DESTINATION ${LEDGERWICK_BASH_COMPLETION_DIR}
          RENAME ledgerwick COMPONENT Command)
  install(FILES packaging/completion/_ledgerwick DESTINATION ${LEDGERWICK_ZSH_COMPLETION_DIR}
          COMPONENT Command)
endif()

configure_package_config_file(cmake/LedgerwickConfig.cmake.in LedgerwickConfig.cmake
                              INSTALL_DESTINATION ${LEDGERWICK_PACKAGE_DIR})
write_basic_package_version_file(LedgerwickConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/LedgerwickConfig.cmake cmake/Fernbank.cmake
              ${PROJECT_BINARY_DIR}/LedgerwickConfigVersion.cmake
        DESTINATION ${LEDGERWICK_PACKAGE_DIR} COMPONENT Development)
