# The Debian packages, one of each component; packaging/build-deb makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ledgerwick)
set(CPACK_PACKAGE_VENDOR "Ledgerwick developers")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENCE)
set(CPACK_PACKAGE_CONTACT "Ledgerwick developers <developers@ledgerwick.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(TARGET ledgerwick_sqlite)
  list(APPEND CPACK_COMPONENTS_ALL Sqlite)
endif()
if(TARGET ledgerwick_postgres)
  list(APPEND CPACK_COMPONENTS_ALL Postgres)
endif()
if(TARGET ledgerwick_command)
  list(APPEND CPACK_COMPONENTS_ALL Command)
endif()
if(LEDGERWICK_PYTHON_DIR)
  list(APPEND CPACK_COMPONENTS_ALL Python)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What a package's programs need is read out of them; those of this project are in the build.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libledgerwick${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "UK payroll object library
 Ledgerwick is a payroll object library that an accounts suite loads
 in-process. It loads employees with their employments, knows the UK tax
 calendar, opens and closes pay runs, and produces the tables and letters
 of pension auto-enrolment.
 .
 This package holds the shared libraries: the component, the ready-made
 host layer, the C interface, and the data-access object that the component
 loads. A company in a file needs libledgerwick-sqlite${PROJECT_VERSION_MAJOR} as well.")
set(sqlite_package libledgerwick-sqlite${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS ${sqlite_package})
# The linker's own cache is brought up to date, as for every shared library.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

set(CPACK_DEBIAN_SQLITE_PACKAGE_NAME ${sqlite_package})
set(CPACK_DEBIAN_SQLITE_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_SQLITE_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${same_version}")
set(CPACK_DEBIAN_SQLITE_DESCRIPTION
    "UK payroll object library: companies in SQLite files
 Ledgerwick is a payroll object library that an accounts suite loads
 in-process.
 .
 This package holds the store that keeps a company in an SQLite file.")
set(CPACK_DEBIAN_SQLITE_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

set(postgres_package libledgerwick-postgres${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_POSTGRES_PACKAGE_NAME ${postgres_package})
set(CPACK_DEBIAN_POSTGRES_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_POSTGRES_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${same_version}")
set(CPACK_DEBIAN_POSTGRES_DESCRIPTION
    "UK payroll object library: companies on a PostgreSQL server
 Ledgerwick is a payroll object library that an accounts suite loads
 in-process.
 .
 This package holds the store that keeps a company in a schema of a
 PostgreSQL database, for several offices at once.")
set(CPACK_DEBIAN_POSTGRES_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libledgerwick-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${same_version}, ${sqlite_package} ${same_version}")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "UK payroll object library: headers
 Ledgerwick is a payroll object library that an accounts suite loads
 in-process.
 .
 This package holds what building a host needs: the headers, the CMake
 package and the pkg-config files.")

set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME ledgerwick)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${same_version}, ${sqlite_package} ${same_version}")
set(CPACK_DEBIAN_COMMAND_DESCRIPTION
    "UK payroll from the command line
 The command ledgerwick runs a payroll database with the library of the
 same name: it imports a company from CSV, lists which pay dates fall due,
 opens and closes pay runs, and writes the tables and letters of pension
 auto-enrolment.
 .
 A sample company, the database's schema, the man page and completions for
 bash and zsh are included.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-ledgerwick)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.9), ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${same_version}, ${sqlite_package} ${same_version}")
# Python's own tools compile the package when it comes and clear up when it goes.
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    "${PROJECT_SOURCE_DIR}/packaging/debian/python/postinst;${PROJECT_SOURCE_DIR}/packaging/debian/python/prerm")
set(CPACK_DEBIAN_PYTHON_DESCRIPTION
    "UK payroll object library for Python
 Ledgerwick is a payroll object library that an accounts suite loads
 in-process. It loads employees with their employments, knows the UK tax
 calendar, opens and closes pay runs, and produces the tables and letters
 of pension auto-enrolment.
 .
 This package holds the Python package ledgerwick.")

# Man pages are compressed, and every package gets its copyright and its changelog.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)
set(CPACK_LEDGERWICK_SOURCE ${PROJECT_SOURCE_DIR})
include(CPack)
