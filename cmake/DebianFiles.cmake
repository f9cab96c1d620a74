# Run by CPack on the files of each package before it is made.
foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} upper)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(doc ${root}/share/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  file(COPY ${CPACK_LEDGERWICK_SOURCE}/packaging/debian/copyright
       DESTINATION ${doc} FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  file(COPY_FILE ${CPACK_LEDGERWICK_SOURCE}/packaging/debian/changelog ${doc}/changelog.Debian)
  file(GLOB pages ${root}/share/man/man*/*)
  # -n leaves the time out, so that the same sources make the same package.
  execute_process(COMMAND gzip -9nf ${doc}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
  file(CHMOD_RECURSE ${root} FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
       DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                             WORLD_EXECUTE)
  file(GLOB programs ${root}/bin/*)
  if(programs)
    file(CHMOD ${programs} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                       WORLD_READ WORLD_EXECUTE)
  endif()
endforeach()
