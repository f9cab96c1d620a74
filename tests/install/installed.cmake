# Installs this build, moves the installation elsewhere, and builds hosts against it.
include(${CMAKE_CURRENT_LIST_DIR}/hosts.cmake)
set(folder ${BUILD}/tests/install/installed)
file(REMOVE_RECURSE ${folder})
must(${CMAKE_COMMAND} --install ${BUILD} --prefix ${folder}/first)
file(RENAME ${folder}/first ${folder}/prefix)
build_and_run_hosts(${folder} ${folder}/prefix)

# The same host with nothing but a compiler and pkg-config.
file(GLOB_RECURSE described ${folder}/prefix/ledgerwick-hostkit.pc)
cmake_path(GET described PARENT_PATH packages)
cmake_path(GET packages PARENT_PATH libraries)
must(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${packages}
     pkg-config --cflags --libs "ledgerwick-sqlite >= 1" "ledgerwick < 2")
separate_arguments(arguments UNIX_COMMAND "${flags} ${output}")
must(${COMPILER} -std=c++20 ${SOURCE}/examples/host/main.cpp -o ${folder}/plain ${arguments}
     -Wl,-rpath,${libraries})
must_say("1 employee is due" ${folder}/plain ${folder}/plain.db)
