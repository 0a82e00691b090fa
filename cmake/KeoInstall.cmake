# Installs headers, libraries and the CMake package 'keoFeature', which gives the imported targets
# keo::keoCommon, keo::keoData, keo::keoFeature, keo::keoPicture and keo::keoSource.
include(CMakePackageConfigHelpers)

get_property(keo_libraries GLOBAL PROPERTY KEO_LIBRARIES)
install(TARGETS ${keo_libraries}
    EXPORT keoFeatureTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/keo)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/Core/include/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/keo
    FILES_MATCHING PATTERN "*.h")

set(keo_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/keoFeature)
install(EXPORT keoFeatureTargets NAMESPACE keo:: DESTINATION ${keo_cmake_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/keoFeatureConfig.cmake.in
    ${PROJECT_BINARY_DIR}/keoFeatureConfig.cmake
    INSTALL_DESTINATION ${keo_cmake_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/keoFeatureConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/keoFeatureConfig.cmake
    ${PROJECT_BINARY_DIR}/keoFeatureConfigVersion.cmake
    DESTINATION ${keo_cmake_dir})
