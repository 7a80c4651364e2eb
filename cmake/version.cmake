# Makes version.hpp for the module record. The build time is that of the configuration, so that
# building again rebuilds nothing; SOURCE_DATE_EPOCH overrides it. The release of the system is the
# distribution's: a kernel's number would differ between builders of the same package.
function(voxml_version_header target source)
  string(TIMESTAMP VOXML_BUILD_TIME "UTC %Y-%m-%d %H:%M:%S (%A)" UTC)
  math(EXPR VOXML_WORD_SIZE "8 * ${CMAKE_SIZEOF_VOID_P}")
  set(VOXML_SYSTEM ${CMAKE_SYSTEM_NAME})
  if(NOT CMAKE_CROSSCOMPILING)
    cmake_host_system_information(RESULT release QUERY DISTRIB_NAME DISTRIB_VERSION_ID)
    list(JOIN release " " release)
    if(release)
      set(VOXML_SYSTEM ${release})
    endif()
  endif()
  set(directory ${PROJECT_BINARY_DIR}/generated)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.hpp.in ${directory}/version.hpp ESCAPE_QUOTES)
  target_include_directories(${target} PRIVATE ${directory})
  set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS
    "VOXML_BUILD_TYPE=\"$<IF:$<BOOL:$<CONFIG>>,$<CONFIG>,None>\"")
endfunction()
