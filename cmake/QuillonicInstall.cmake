# Installs the library, its headers, and its CMake and pkg-config packages, in the components Runtime,
# Development and Examples. The installed tree can be moved as a whole. A shared and a static build may share
# one prefix: each has its own file of targets, and their common files are identical.
include(CMakePackageConfigHelpers)

# An absolute folder inside the prefix counts as part of it, so that it moves with the rest.
foreach(folder IN ITEMS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR CMAKE_INSTALL_DOCDIR)
  cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX "${${folder}}" NORMALIZE is_inside)
  if(is_inside)
    file(RELATIVE_PATH ${folder} ${CMAKE_INSTALL_PREFIX} ${${folder}})
  endif()
endforeach()
if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  message(FATAL_ERROR "The headers' folder ${CMAKE_INSTALL_INCLUDEDIR} is outside the prefix ${CMAKE_INSTALL_PREFIX}, "
    "so that the installed package would not find it. Give CMAKE_INSTALL_INCLUDEDIR relative to the prefix.")
endif()

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
# The headers for hosts with other libraries, whether this machine has these or not.
install(FILES include/quillonic/json.hpp include/quillonic/preset_json.hpp include/quillonic/checksums.hpp
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillonic COMPONENT Development)

configure_package_config_file(cmake/QuillonicConfig.cmake.in ${PROJECT_BINARY_DIR}/QuillonicConfig.cmake
  INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
# The same compatibility as the shared library's name.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(compatibility SameMinorVersion)
else()
  set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuillonicConfigVersion.cmake COMPATIBILITY ${compatibility})
install(FILES ${PROJECT_BINARY_DIR}/QuillonicConfig.cmake ${PROJECT_BINARY_DIR}/QuillonicConfigVersion.cmake
  DESTINATION ${package_folder} COMPONENT Development)

# pkg-config finds everything relative to its file. It omits system folders from its output, so they are named
# as such, as is a folder for libraries outside the prefix.
set(pc_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(pc_libdir \${prefix}/${CMAKE_INSTALL_LIBDIR})
file(RELATIVE_PATH to_prefix /${pc_folder} /)
set(pc_prefix_movable \${pcfiledir}/${to_prefix})
set(pc_prefix_system /usr)
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(pc_libdir ${CMAKE_INSTALL_LIBDIR})
  set(pc_prefix_movable ${CMAKE_INSTALL_PREFIX})
endif()
set(packages quillonic)
if(kind STREQUAL Static)
  # If both libraries are installed, -lquillonic is the shared one.
  list(APPEND packages quillonic-static)
endif()
# The folders can still be chosen at install time.
install(CODE [[
  set(pc_form movable)
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(pc_form system)
  endif()]] COMPONENT Development)
foreach(package IN LISTS packages)
  foreach(form IN ITEMS movable system)
    set(pc_prefix ${pc_prefix_${form}})
    configure_file(cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${form}/${package}.pc @ONLY)
  endforeach()
  install(FILES ${PROJECT_BINARY_DIR}/\${pc_form}/${package}.pc DESTINATION ${pc_folder} COMPONENT Development)
endforeach()

if(QUILLONIC_BUILD_EXAMPLES)
  set(examples_folder ${CMAKE_INSTALL_LIBDIR}/quillonic/examples)
  get_property(examples DIRECTORY examples PROPERTY BUILDSYSTEM_TARGETS)
  foreach(example IN LISTS examples)
    set_target_properties(${example} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
    install(TARGETS ${example} RUNTIME DESTINATION ${examples_folder} COMPONENT Examples)
  endforeach()
  install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT Examples
    FILES_MATCHING PATTERN *.cpp PATTERN *.hpp PATTERN expected EXCLUDE)
endif()
