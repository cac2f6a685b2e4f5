# What `cmake --install` puts where: libraries, headers, pkg-config files, the CMake package.
include(CMakePackageConfigHelpers)

install(TARGETS grx_toolkit grx grxhost grxpapier grx_static grxhost_static grxpapier_static EXPORT grx-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/inc/" "${PROJECT_SOURCE_DIR}/host/"
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/grx
        FILES_MATCHING PATTERN "*.h" PATTERN "standalone" EXCLUDE)

# The pkg-config files find their prefix from where they lie, so that an installed tree can be moved.
cmake_path(SET pc_dir "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH pc_to_prefix "${pc_dir}" "${CMAKE_INSTALL_PREFIX}")
foreach(name grx grx-host grx-papier)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/grx)
set_target_properties(grxhost PROPERTIES EXPORT_NAME host)
set_target_properties(grxhost_static PROPERTIES EXPORT_NAME host_static)
set_target_properties(grxpapier PROPERTIES EXPORT_NAME papier)
set_target_properties(grxpapier_static PROPERTIES EXPORT_NAME papier_static)
install(EXPORT grx-targets NAMESPACE grx:: DESTINATION ${package_dir})
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/grx-config.cmake.in"
  "${PROJECT_BINARY_DIR}/grx-config.cmake" INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/grx-config-version.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/grx-config.cmake" "${PROJECT_BINARY_DIR}/grx-config-version.cmake"
        DESTINATION ${package_dir})
