# Run by CPack on the files of each package before it is made.

# The words of the licence, as a paragraph of debian/copyright is set.
file(READ ${CPACK_LEDGERWICK_SOURCE}/LICENCE licence)
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence "${licence}")

foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} upper)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(doc ${root}/share/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  file(MAKE_DIRECTORY ${doc})
  file(READ ${CPACK_LEDGERWICK_SOURCE}/packaging/debian/copyright copyright)
  file(WRITE ${doc}/copyright "${copyright} ${licence}\n")
  file(COPY_FILE ${CPACK_LEDGERWICK_SOURCE}/packaging/debian/changelog ${doc}/changelog.Debian)
  file(GLOB pages ${root}/share/man/man*/*)
  # -n leaves the time out, so that the same sources make the same package.
  execute_process(COMMAND gzip -9nf ${doc}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
  # The links of a package may lead into another one, which chmod does not follow.
  execute_process(COMMAND chmod -R u=rwX,go=rX ${root} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
