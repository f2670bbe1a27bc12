# `cpack --preset release` makes Debian packages: orvale, the command with its module, and liborvale-dev, what a C++ host
# is built with. What Debian's policy asks for beyond the installed tree is added by PackageTree.cmake.
set(CPACK_PACKAGE_NAME orvale)
set(CPACK_PACKAGE_CONTACT "The Orvale authors <maintainers@orvale.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 0orvale1)  # a package of Debian's own, -1, would go before it
set(CPACK_DEBIAN_PACKAGE_SOURCE orvale)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME orvale)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "libical3, libgmime-3.0-0")  # loaded when their formats are met
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "files of a mobile phone's contacts, calendar and messages
Orvale reads and writes the files in which the phones of the 2000s and their
desktop programs kept a person's data: contacts, calendars, messages and mail.
The command shows such a file, checks it, and turns it into another format;
what another format can't hold is told. Programs load the module.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME liborvale-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "orvale (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DEV_DESCRIPTION "files of a mobile phone's contacts - development files
Orvale reads and writes the files in which the phones of the 2000s and their
desktop programs kept a person's data: contacts, calendars, messages and mail.
This package has what a C++ program is built with that works by Orvale's
module: the headers, the static libraries of the host's side, a CMake package
and a pkg-config file.")

string(TIMESTAMP ORVALE_CHANGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian-changelog.in ${PROJECT_BINARY_DIR}/debian-changelog @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/PackageTree.cmake)
set(CPACK_ORVALE_PACKAGES orvale liborvale-dev)  # the names, in the order of the components
set(CPACK_ORVALE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_ORVALE_CHANGELOG ${PROJECT_BINARY_DIR}/debian-changelog)
include(CPack)
