# persona_library(TARGET PREFIX): the settings that both libraries share. Include paths (the
# source tree and the generated headers while building, <prefix>/include once installed), the
# export header persona/<name>_export.h with PREFIX_EXPORT, symbol visibility, version and
# soname, and the project's warnings for its own sources.
include(GenerateExportHeader)
include(GNUInstallDirs)

function(persona_library target prefix)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PERSONA_INCLUDE_ROOT}>
    $<BUILD_INTERFACE:${PERSONA_GENERATED_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  # Transitional: headers that still include "core/set.h" without the persona/ prefix.
  if(NOT PERSONA_NAMESPACED_INCLUDES)
    target_include_directories(${target} PUBLIC
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/persona>)
  endif()
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:persona_warnings>)

  string(REPLACE "persona_" "" stem "${target}")
  if(stem STREQUAL "persona")
    set(header_name export.h)
  else()
    set(header_name ${stem}_export.h)
  endif()
  generate_export_header(${target}
    BASE_NAME ${prefix}
    EXPORT_FILE_NAME ${PERSONA_GENERATED_DIR}/persona/${header_name})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "STATIC_LIBRARY")
    # The export macro expands to nothing in a static library and in its users.
    target_compile_definitions(${target} PUBLIC ${prefix}_STATIC_DEFINE)
  endif()

  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET ${PERSONA_VISIBILITY_PRESET}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()
