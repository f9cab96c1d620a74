# An overlay port that builds the tree it stands in: vcpkg install ledgerwick --overlay-ports=packaging/vcpkg
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS FEATURE_OPTIONS FEATURES hostkit LEDGERWICK_WITH_HOSTKIT)

vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        ${FEATURE_OPTIONS}
        -DLEDGERWICK_WITH_APP=OFF
        -DLEDGERWICK_WITH_TESTS=OFF
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME Ledgerwick CONFIG_PATH lib/cmake/Ledgerwick)
vcpkg_fixup_pkgconfig()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
# The static library looks for Fernbank in the folder of the program, which puts it there.
if(VCPKG_LIBRARY_LINKAGE STREQUAL "static")
    set(VCPKG_POLICY_ALLOW_EXES_IN_BIN enabled)
endif()
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENCE")
