# Installs the libraries, the tool, the data and the headers, and exports the package.

set(ZORGEO_DATADIR ${CMAKE_INSTALL_DATADIR}/zorgeo)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zorgeo)

install(TARGETS zorbase zorcoordsys EXPORT zorgeo-targets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS zorgeo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The tool and the module find the base layer beside them, wherever the tree is put.
set_target_properties(zorgeo PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
set_target_properties(zorcoordsys PROPERTIES INSTALL_RPATH "$ORIGIN")

install(DIRECTORY base/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zorgeo/base FILES_MATCHING PATTERN "*.h"
        PATTERN "platform" EXCLUDE)
install(DIRECTORY src/frame src/datum src/projections src/database src/authoring src/coordsys
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zorgeo FILES_MATCHING PATTERN "*.h")
install(FILES data/zorgeodatabase.geo data/zorgeosystems.tsv data/zorgeotransformations.tsv data/left-out.tsv data/NOTICE-EPSG data/ZorProjectionStatic.dat NOTICE DESTINATION ${ZORGEO_DATADIR})

install(EXPORT zorgeo-targets NAMESPACE zorgeo:: DESTINATION ${package_dir})
configure_package_config_file(cmake/zorgeo-config.cmake.in ${PROJECT_BINARY_DIR}/zorgeo-config.cmake
                              INSTALL_DESTINATION ${package_dir} PATH_VARS ZORGEO_DATADIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zorgeo-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zorgeo-config.cmake ${PROJECT_BINARY_DIR}/zorgeo-config-version.cmake
        DESTINATION ${package_dir})

configure_file(cmake/zorgeo.pc.in ${PROJECT_BINARY_DIR}/zorgeo.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zorgeo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
