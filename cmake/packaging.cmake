# Debian packages: `cpack -G DEB` in a build tree, native or cross, gives
#   libbacfmtN     the shared libraries (component runtime)
#   libbacfmt-dev  headers, link names, static libraries, CMake and pkg-config
#                  files (component dev), depending on libbacfmtN of its version
#   bacfmt         the tool and its manual page (component tool)
if(NOT BACFMT_INSTALL)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME bacfmt)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "bacfmt developers <bacfmt@example.org>" CACHE STRING
    "Maintainer of the Debian packages")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "BACnet values between stack records and a text notation")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime dev)
if(TARGET bacfmt_tool)
  list(APPEND CPACK_COMPONENTS_ALL tool)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEV_DEPENDS runtime)
set(CPACK_COMPONENT_TOOL_DEPENDS runtime)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libbacfmt${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "BACnet values to text and back: shared libraries\n libbacfmt and libbacfmt-text, the enumeration text services it links.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libbacfmt-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION
    "BACnet values to text and back: development files\n C headers, static libraries, a CMake package and a pkg-config file.")
set(CPACK_DEBIAN_TOOL_PACKAGE_NAME bacfmt)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOL_DESCRIPTION
    "BACnet values to text and back: command-line tool\n Checks value files, scans and prints values, lists texts and properties.")

# The runtime package tells packages built against it what to depend on.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

if(CMAKE_CROSSCOMPILING)
  # The Debian architecture of the target, from the cross compiler's triplet.
  execute_process(COMMAND dpkg-architecture -t${CMAKE_LIBRARY_ARCHITECTURE} -qDEB_HOST_ARCH
                  OUTPUT_VARIABLE BACFMT_DEB_ARCH OUTPUT_STRIP_TRAILING_WHITESPACE
                  ERROR_QUIET)
  if(NOT BACFMT_DEB_ARCH)
    message(WARNING "No Debian architecture for ${CMAKE_LIBRARY_ARCHITECTURE} (dpkg-architecture): "
                    "cpack would label the packages with the host's")
  endif()
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${BACFMT_DEB_ARCH})
  # dpkg-shlibdeps knows only the host's libraries: the C and C++ runtimes
  # are named by hand, at the versions of the toolchain that built these.
  set(BACFMT_DEB_CXX_RUNTIME "libc6 (>= 2.36), libgcc-s1 (>= 3.0), libstdc++6 (>= 12)")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS ${BACFMT_DEB_CXX_RUNTIME})
  set(CPACK_DEBIAN_TOOL_PACKAGE_DEPENDS ${BACFMT_DEB_CXX_RUNTIME})
else()
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # Our own libraries are found in the build tree; the packages name them.
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
      ${PROJECT_BINARY_DIR} ${PROJECT_BINARY_DIR}/src/textservices)
endif()

include(CPack)
