# What `cmake --install` puts where: the module and the command (component "runtime"), and what a C++ host is built with
# (component "dev").
include(CMakePackageConfigHelpers)

set(ORVALE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Orvale)
set(ORVALE_MODULE_DIR ${CMAKE_INSTALL_LIBDIR}/orvale)

install(TARGETS Orvale LIBRARY DESTINATION ${ORVALE_MODULE_DIR} COMPONENT runtime)
install(TARGETS orvale RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
if(TARGET orvale_pages)
    set(share ${CMAKE_INSTALL_DATADIR})
    install(FILES ${ORVALE_PAGES_DIR}/orvale.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT runtime)
    install(FILES ${ORVALE_PAGES_DIR}/orvale.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5 COMPONENT runtime)
    install(FILES ${ORVALE_PAGES_DIR}/orvale.bash DESTINATION ${share}/bash-completion/completions RENAME orvale
        COMPONENT runtime)
    install(FILES ${ORVALE_PAGES_DIR}/_orvale DESTINATION ${share}/zsh/site-functions COMPONENT runtime)
    install(FILES ${ORVALE_PAGES_DIR}/orvale.fish DESTINATION ${share}/fish/vendor_completions.d COMPONENT runtime)
endif()

# The public headers keep their folders: hosts write #include <host/RecordFile.h>.
set(ORVALE_HEADERS ${PROJECT_SOURCE_DIR}/src/platform ${PROJECT_SOURCE_DIR}/src/records)
set(ORVALE_LIBRARIES orvale_records)
set_target_properties(orvale_records PROPERTIES EXPORT_NAME records)
if(TARGET orvale_host)
    list(APPEND ORVALE_HEADERS ${PROJECT_SOURCE_DIR}/src/host)
    list(PREPEND ORVALE_LIBRARIES orvale_host)
    set_target_properties(orvale_host PROPERTIES EXPORT_NAME host)
endif()
install(DIRECTORY ${ORVALE_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orvale COMPONENT dev
    FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_SOURCE_DIR}/src/frame/FileInterface.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orvale/frame
    COMPONENT dev)

install(TARGETS ${ORVALE_LIBRARIES} EXPORT OrvaleTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
install(EXPORT OrvaleTargets NAMESPACE Orvale:: DESTINATION ${ORVALE_PACKAGE_DIR} COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/OrvaleConfig.cmake.in ${PROJECT_BINARY_DIR}/OrvaleConfig.cmake
    INSTALL_DESTINATION ${ORVALE_PACKAGE_DIR} PATH_VARS ORVALE_MODULE_DIR)
# Records cross the boundary by layout, and until 1.0 a layout may change with the minor version.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvaleConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/OrvaleConfig.cmake ${PROJECT_BINARY_DIR}/OrvaleConfigVersion.cmake
    DESTINATION ${ORVALE_PACKAGE_DIR} COMPONENT dev)

# The pkg-config file finds its prefix by its own place, so that an installed tree can be moved.
file(RELATIVE_PATH ORVALE_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" ORVALE_PC_TO_PREFIX ${ORVALE_PC_TO_PREFIX})
list(TRANSFORM ORVALE_LIBRARIES PREPEND "-l" OUTPUT_VARIABLE ORVALE_PC_LIBS)
list(TRANSFORM CMAKE_DL_LIBS PREPEND "-l" OUTPUT_VARIABLE ORVALE_PC_DL_LIBS)
list(JOIN ORVALE_PC_LIBS " " ORVALE_PC_LIBS)
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvale.pc.in ${PROJECT_BINARY_DIR}/orvale.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvale.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/samples DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT runtime)
