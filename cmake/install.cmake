# Installation: headers, both libraries and the text services, the tool with
# its manual page, a CMake package and a pkg-config file. Three components
# match the Debian packages: runtime (shared objects), dev (headers, link
# names, static libraries, package files) and tool.
include(CMakePackageConfigHelpers)

set(BACFMT_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/bacfmt)

# Exported under bacfmt::, the names the aliases give them in a build tree.
set_target_properties(bacfmt_text PROPERTIES EXPORT_NAME text)
set_target_properties(bacfmt_text_static PROPERTIES EXPORT_NAME text_static)

install(TARGETS bacfmt bacfmt_text EXPORT bacfmtTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev)
install(TARGETS bacfmt_static bacfmt_text_static EXPORT bacfmtTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/bacfmt
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)

install(EXPORT bacfmtTargets NAMESPACE bacfmt:: DESTINATION ${BACFMT_CMAKE_DIR} COMPONENT dev)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/bacfmtConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/bacfmtConfig.cmake
                              INSTALL_DESTINATION ${BACFMT_CMAKE_DIR})
# Same major version, same pointer size: a 32-bit ARM tree does not satisfy
# a 64-bit consumer.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/bacfmtConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/bacfmtConfig.cmake ${PROJECT_BINARY_DIR}/bacfmtConfigVersion.cmake
        DESTINATION ${BACFMT_CMAKE_DIR} COMPONENT dev)

# pkg-config: the prefix is found from the file's own place, so that one
# install serves a staging tree and a package alike.
file(RELATIVE_PATH BACFMT_PC_TO_PREFIX
     /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" BACFMT_PC_TO_PREFIX "${BACFMT_PC_TO_PREFIX}")
if(BACFMT_TEXT_SERVICES)
  set(BACFMT_PC_TEXT_LIBS " -lbacfmt-text")
else()
  set(BACFMT_PC_TEXT_LIBS "")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/bacfmt.pc.in ${PROJECT_BINARY_DIR}/bacfmt.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/bacfmt.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

if(TARGET bacfmt_tool)
  # The tool finds the library beside its own tree wherever that is installed.
  file(RELATIVE_PATH BACFMT_BIN_TO_LIB
       /prefix/${CMAKE_INSTALL_BINDIR} /prefix/${CMAKE_INSTALL_LIBDIR})
  set_target_properties(bacfmt_tool PROPERTIES INSTALL_RPATH "$ORIGIN/${BACFMT_BIN_TO_LIB}")
  install(TARGETS bacfmt_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  # Manual pages are installed compressed, the way Debian ships them; -n
  # keeps the name and time out of the file, so that builds agree.
  add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/bacfmt.1.gz
                     COMMAND gzip -9n -c ${PROJECT_SOURCE_DIR}/docs/bacfmt.1 > ${PROJECT_BINARY_DIR}/bacfmt.1.gz
                     DEPENDS ${PROJECT_SOURCE_DIR}/docs/bacfmt.1 VERBATIM)
  add_custom_target(bacfmt_manpage ALL DEPENDS ${PROJECT_BINARY_DIR}/bacfmt.1.gz)
  install(FILES ${PROJECT_BINARY_DIR}/bacfmt.1.gz
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
endif()
