# Run by cpack on the folder that becomes the package: adds what packages of Debian alone have, a change log
# and what its checker is to pass over, and compresses what they have compressed.

set(usr "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}")

# In English whoever makes it; SOURCE_DATE_EPOCH gives the date where equal packages are wanted.
set(ENV{LC_ALL} C)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE "${usr}/share/doc/kest/changelog"
  "${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Packaged from the sources of version ${CPACK_PACKAGE_VERSION}.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")

file(MAKE_DIRECTORY "${usr}/share/lintian/overrides")
file(COPY_FILE "${CMAKE_CURRENT_LIST_DIR}/lintian-overrides" "${usr}/share/lintian/overrides/${CPACK_PACKAGE_NAME}")

find_program(gzip gzip REQUIRED)
file(GLOB texts "${usr}/share/man/man*/*" "${usr}/share/doc/kest/changelog")
# Neither name nor time in what is compressed, so that equal texts give equal files.
execute_process(COMMAND "${gzip}" -9 -n -f ${texts} COMMAND_ERROR_IS_FATAL ANY)
