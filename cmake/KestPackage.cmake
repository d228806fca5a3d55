# The Debian package, made with `cpack -G DEB` in a build folder. What the package depends on is asked of
# the programs themselves (dpkg-shlibdeps).

set(KEST_PACKAGER "The LayerManager developers <packages@layermanager.example>" CACHE STRING
  "Name and address of who makes the package")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kest)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${KEST_PACKAGER}")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Libraries of our own lie in the package, not in one that it could depend on.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
# Qt's texts in other languages, and its way to the newer kind of display server.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "viewer for CAD drawings with a layer palette
Kest opens CAD drawings in the DXF and DWG formats, shows model space and
sheets, and saves them again without losing a byte that was not edited.

Its layer palette finds, groups, switches, recolours and standardises the
layers of a drawing, per viewport too, whether there are ten of them or a
hundred thousand.

layerman does the same from the command line, for many drawings at once.")

set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/debian/DebianFolder.cmake")
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};${PROJECT_NAME};ALL;/")
include(CPack)
