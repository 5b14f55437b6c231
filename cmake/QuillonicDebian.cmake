# The Debian packages: the library, its development files, and the examples. scripts/package makes them.
if(NOT QUILLONIC_INSTALL OR NOT BUILD_SHARED_LIBS)
  return()
endif()

get_target_property(soversion quillonic SOVERSION)
get_target_property(library_folder quillonic BINARY_DIR)
set(runtime_package libquillonic${soversion})
set(release 1)  # of the packages, where the version stays
set(same_version "${runtime_package} (= ${PROJECT_VERSION}-${release})")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillonic)
set(CPACK_PACKAGE_VENDOR "")
set(CPACK_PACKAGE_CONTACT "Quillonic developers <developers@quillonic.invalid>" CACHE STRING
  "Who answers for the Debian packages: a name and an address")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(QUILLONIC_BUILD_EXAMPLES)
  list(APPEND CPACK_COMPONENTS_ALL Examples)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${release})
set(CPACK_QUILLONIC_SOURCES ${PROJECT_SOURCE_DIR})
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/QuillonicDebianFinish.cmake)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${library_folder})

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"The vocabulary and the model of command lines, media settings, timecodes
and helpers for file systems. This package holds the shared library that
programs load.")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquillonic-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${same_version})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "nlohmann-json3-dev, libxxhash-dev, libssl-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"The vocabulary and the model of command lines, media settings, timecodes
and helpers for file systems. This package holds what programs are built
with: the headers, and the packages for CMake and pkg-config.")

set(CPACK_DEBIAN_EXAMPLES_PACKAGE_NAME quillonic-examples)
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_EXAMPLES_PACKAGE_DEPENDS ${same_version})
set(CPACK_DEBIAN_EXAMPLES_DESCRIPTION
"The vocabulary and the model of command lines, media settings, timecodes
and helpers for file systems. This package holds the examples, as programs
and as sources: a parent application and the child tools that it starts.")

include(CPack)
