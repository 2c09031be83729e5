# Installation: the two libraries as the CMake package persona (persona::persona and
# persona::json), the headers under include/persona/, pkg-config files, the version file and
# the generated headers. The tool installs itself under bin/ (tools/persona).
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(PERSONA_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/persona)

install(TARGETS persona persona_json EXPORT personaTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT personaTargets NAMESPACE persona:: DESTINATION ${PERSONA_CMAKE_DIR})

# Headers: everything under <persona/...> in the source tree, every layer folder, and the
# generated version and export headers.
install(DIRECTORY ${PERSONA_INCLUDE_ROOT}/persona/
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/persona FILES_MATCHING PATTERN "*.h")
if(NOT PERSONA_SOURCE_ROOT STREQUAL "${PERSONA_INCLUDE_ROOT}/persona")
  foreach(folder IN LISTS PERSONA_FOLDERS)
    install(DIRECTORY ${PERSONA_SOURCE_ROOT}/${folder}/
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/persona/${folder} FILES_MATCHING PATTERN "*.h")
  endforeach()
endif()
install(DIRECTORY ${PERSONA_GENERATED_DIR}/persona/
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/persona FILES_MATCHING PATTERN "*.h")

configure_package_config_file(cmake/personaConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/personaConfig.cmake INSTALL_DESTINATION ${PERSONA_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/personaConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/personaConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/personaConfigVersion.cmake
        DESTINATION ${PERSONA_CMAKE_DIR})

# pkg-config: persona (the record library) and persona-json (which requires nlohmann_json).
# Paths are relative to the .pc file, so the installed tree can be moved.
set(PERSONA_PC_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PERSONA_PC_TO_PREFIX /${PERSONA_PC_DIR} /)
string(REGEX REPLACE "/$" "" PERSONA_PC_TO_PREFIX "${PERSONA_PC_TO_PREFIX}")
set(PERSONA_PC_CFLAGS "")
set(PERSONA_JSON_PC_CFLAGS "")
if(NOT BUILD_SHARED_LIBS)
  set(PERSONA_PC_CFLAGS " -DPERSONA_STATIC_DEFINE")
  set(PERSONA_JSON_PC_CFLAGS " -DPERSONA_JSON_STATIC_DEFINE")
endif()
if(NOT PERSONA_NAMESPACED_INCLUDES)
  string(APPEND PERSONA_PC_CFLAGS " -I\${includedir}/persona")
endif()
foreach(pc persona persona-json)
  configure_file(cmake/${pc}.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${pc}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${pc}.pc DESTINATION ${PERSONA_PC_DIR})
endforeach()

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
