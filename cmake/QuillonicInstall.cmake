# Installs the library, its headers, and its packages for CMake and pkg-config, in the components Runtime, Development
# and Examples. What is installed can be moved as a whole. A shared and a static build may share one prefix: each brings
# its own file of targets, and what both bring is the same.
include(CMakePackageConfigHelpers)

if(BUILD_SHARED_LIBS)
  set(kind Shared)
else()
  set(kind Static)
endif()
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Quillonic)

list(TRANSFORM QUILLONIC_COMPONENTS PREPEND quillonic_ OUTPUT_VARIABLE component_targets)
install(TARGETS quillonic ${component_targets} EXPORT QuillonicTargets
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development
  FILE_SET HEADERS COMPONENT Development)
install(EXPORT QuillonicTargets DESTINATION ${package_folder} FILE Quillonic${kind}Targets.cmake
  NAMESPACE Quillonic:: COMPONENT Development)
# The header for hosts that have nlohmann-json: they have it or not, whatever this machine has.
install(FILES include/quillonic/json.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillonic COMPONENT Development)

configure_package_config_file(cmake/QuillonicConfig.cmake.in ${PROJECT_BINARY_DIR}/QuillonicConfig.cmake
  INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
# The same promise as the shared library's name makes.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
else()
  set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuillonicConfigVersion.cmake COMPATIBILITY ${compatibility})
install(FILES ${PROJECT_BINARY_DIR}/QuillonicConfig.cmake ${PROJECT_BINARY_DIR}/QuillonicConfigVersion.cmake
  DESTINATION ${package_folder} COMPONENT Development)

# pkg-config finds everything from where its file lies. Only a folder outside the prefix stays where it was said to be.
set(pc_folder ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR} NORMALIZE libraries_are_inside)
cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX ${CMAKE_INSTALL_FULL_INCLUDEDIR} NORMALIZE headers_are_inside)
if(libraries_are_inside AND headers_are_inside)
  file(RELATIVE_PATH pc_includedir ${pc_folder} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  string(PREPEND pc_includedir "\${pcfiledir}/")
else()
  set(pc_includedir ${CMAKE_INSTALL_FULL_INCLUDEDIR})
endif()
set(packages quillonic)
if(kind STREQUAL Static)
  # Where both kinds are installed, -lquillonic is the shared one.
  list(APPEND packages quillonic-static)
endif()
foreach(package IN LISTS packages)
  configure_file(cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
endforeach()

if(QUILLONIC_BUILD_EXAMPLES)
  set(examples_folder ${CMAKE_INSTALL_LIBDIR}/quillonic/examples)
  get_property(examples DIRECTORY examples PROPERTY BUILDSYSTEM_TARGETS)
  foreach(example IN LISTS examples)
    set_target_properties(${example} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
    install(TARGETS ${example} RUNTIME DESTINATION ${examples_folder} COMPONENT Examples)
    get_target_property(source ${example} SOURCES)
    install(FILES examples/${source} DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT Examples)
  endforeach()
endif()
