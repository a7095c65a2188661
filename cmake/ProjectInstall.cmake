# The installation: libraries, headers, tool, catalogue, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/VEXTimeAnalysisModeler)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/VEXTimeAnalysisModeler)
set(data_folder ${CMAKE_INSTALL_DATADIR}/VEXTimeAnalysisModeler)

# Two export sets: the shared libraries carry what they need, the static ones ask their user for it.
install(TARGETS korplatform_shared VEXTimeAnalysisModelerServices_shared
  EXPORT VEXTimeAnalysisModelerSharedTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS korplatform VEXTimeAnalysisModelerServices
  EXPORT VEXTimeAnalysisModelerStaticTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
set_target_properties(korplatform_shared PROPERTIES EXPORT_NAME Platform)
set_target_properties(korplatform PROPERTIES EXPORT_NAME PlatformStatic)
set_target_properties(VEXTimeAnalysisModelerServices_shared PROPERTIES EXPORT_NAME Services)
set_target_properties(VEXTimeAnalysisModelerServices PROPERTIES EXPORT_NAME ServicesStatic)
foreach(kind IN ITEMS Shared Static)
  install(EXPORT VEXTimeAnalysisModeler${kind}Targets
    NAMESPACE VEXTimeAnalysisModeler:: DESTINATION ${package_folder})
endforeach()

configure_package_config_file(cmake/VEXTimeAnalysisModelerConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/VEXTimeAnalysisModelerConfig.cmake INSTALL_DESTINATION ${package_folder} PATH_VARS data_folder)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/package/VEXTimeAnalysisModelerConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/package/VEXTimeAnalysisModelerConfig.cmake
  ${PROJECT_BINARY_DIR}/package/VEXTimeAnalysisModelerConfigVersion.cmake
  cmake/FindUtf8proc.cmake
  cmake/FindLua54.cmake DESTINATION ${package_folder})

file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
configure_file(cmake/VEXTimeAnalysisModeler.pc.in
  ${PROJECT_BINARY_DIR}/package/VEXTimeAnalysisModeler.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/VEXTimeAnalysisModeler.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(DIRECTORY VEXTimeAnalysisModeler/include/ DESTINATION ${header_folder} FILES_MATCHING PATTERN "*.h")
install(DIRECTORY platform DESTINATION ${header_folder} FILES_MATCHING PATTERN "*.h")
install(DIRECTORY catalogue DESTINATION ${data_folder})
if(TARGET timeanalysis)
  install(TARGETS timeanalysis RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# The catalogue beside the built tool, where an installed tool has it too.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/${data_folder})
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/catalogue ${PROJECT_BINARY_DIR}/${data_folder}/catalogue SYMBOLIC)
