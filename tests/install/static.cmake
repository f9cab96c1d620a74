# A parent project takes the library in as static libraries, uses it, and installs it for others.
include(${CMAKE_CURRENT_LIST_DIR}/hosts.cmake)
set(CONFIG None) # quickest to build
set(folder ${BUILD}/tests/install/static)
file(REMOVE_RECURSE ${folder}/prefix ${folder}/host ${folder}/component)
build_host(${CMAKE_CURRENT_LIST_DIR}/parent ${folder}/parent -DLEDGERWICK_SOURCE=${SOURCE})
must_say("1 employee is due on 08/04/2016" ${folder}/parent/parent_host ${folder}/parent.db)
must(${CMAKE_COMMAND} --install ${folder}/parent --prefix ${folder}/prefix)
build_and_run_hosts(${folder} ${folder}/prefix)
