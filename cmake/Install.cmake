# Installs the library, the kit, the command and the package that find_package(Ledgerwick) reads.
include(CMakePackageConfigHelpers)

set(LEDGERWICK_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Ledgerwick)

install(TARGETS ledgerwick EXPORT LedgerwickTargets)
install(DIRECTORY ledgerwick DESTINATION ${LEDGERWICK_INCLUDE_DIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT LedgerwickTargets NAMESPACE Ledgerwick:: DESTINATION ${LEDGERWICK_PACKAGE_DIR})

if(LEDGERWICK_WITH_HOSTKIT)
  install(TARGETS ledgerwick_hostkit EXPORT LedgerwickHostkitTargets)
  # Fernbank is looked for in the library's own folder.
  install(TARGETS fernbank LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(DIRECTORY hostkit DESTINATION ${LEDGERWICK_INCLUDE_DIR} FILES_MATCHING PATTERN "*.h")
  install(FILES hostkit/sqlite/schema.sql DESTINATION ${CMAKE_INSTALL_DATADIR}/ledgerwick)
  install(TARGETS ledgerwick_c EXPORT LedgerwickHostkitTargets)
  install(FILES capi/ledgerwick_c.h DESTINATION ${LEDGERWICK_INCLUDE_DIR})
  install(EXPORT LedgerwickHostkitTargets NAMESPACE Ledgerwick:: DESTINATION ${LEDGERWICK_PACKAGE_DIR})
endif()
if(TARGET ledgerwick_command)
  install(TARGETS ledgerwick_command)
  install(DIRECTORY examples/company DESTINATION ${CMAKE_INSTALL_DATADIR}/ledgerwick/examples)
endif()

configure_package_config_file(cmake/LedgerwickConfig.cmake.in LedgerwickConfig.cmake
                              INSTALL_DESTINATION ${LEDGERWICK_PACKAGE_DIR})
write_basic_package_version_file(LedgerwickConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/LedgerwickConfig.cmake
              ${PROJECT_BINARY_DIR}/LedgerwickConfigVersion.cmake
        DESTINATION ${LEDGERWICK_PACKAGE_DIR})
