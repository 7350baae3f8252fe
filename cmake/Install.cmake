# What `cmake --install` puts under the prefix for a game made outside this
# tree: the engine's headers and library, a CMake package (find_package(Ostrel),
# target Ostrel::ostrel) and a pkg-config file (ostrel). The game and its
# sprites stay here.
include(CMakePackageConfigHelpers)

set(OSTREL_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Ostrel)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/engine DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ostrel
        FILES_MATCHING PATTERN "*.h")
install(TARGETS ostrel EXPORT OstrelTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT OstrelTargets NAMESPACE Ostrel:: DESTINATION ${OSTREL_INSTALL_CMAKEDIR})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/OstrelConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/OstrelConfig.cmake
                              INSTALL_DESTINATION ${OSTREL_INSTALL_CMAKEDIR})
# The version in the log's banner; a game built for 4.x links with any 4.y.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OstrelConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/OstrelConfig.cmake ${PROJECT_BINARY_DIR}/OstrelConfigVersion.cmake
        DESTINATION ${OSTREL_INSTALL_CMAKEDIR})

# The pkg-config file is written at install time, so that it names the prefix
# given to `cmake --install --prefix` rather than the one configured.
install(CODE "
  set(OSTREL_PC_LIBDIR [[${CMAKE_INSTALL_LIBDIR}]])
  set(OSTREL_PC_INCLUDEDIR [[${CMAKE_INSTALL_INCLUDEDIR}]])
  set(OSTREL_PC_VERSION [[${PROJECT_VERSION}]])
  configure_file([[${CMAKE_CURRENT_LIST_DIR}/ostrel.pc.in]] [[${PROJECT_BINARY_DIR}/ostrel.pc]] @ONLY)
")
install(FILES ${PROJECT_BINARY_DIR}/ostrel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
