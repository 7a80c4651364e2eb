# The libraries. Each is compiled once; its objects make the installed library and a static
# one that also shows the internals, which the tests link.
function(voxml_library name namespace)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name}_objects OBJECT ${ARG_SOURCES})
  voxml_warnings(${name}_objects)
  target_include_directories(${name}_objects
    PRIVATE ${PROJECT_SOURCE_DIR}
    PUBLIC ${PROJECT_SOURCE_DIR}/include)
  target_compile_options(${name}_objects PRIVATE
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/= -fno-exceptions -fno-rtti
    # Calls inside a library go to that library, so that they can be direct or inlined.
    -fno-semantic-interposition)
  target_compile_definitions(${name}_objects PUBLIC
    VO_CHUNKS=$<BOOL:${VOXML_CHUNKS}>
    $<$<BOOL:${VOXML_COUNT_OBJECTS}>:VO_COUNT_OBJECTS>)
  set_target_properties(${name}_objects PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)

  add_library(${name} $<TARGET_OBJECTS:${name}_objects>)
  add_library(voxml::${namespace} ALIAS ${name})
  target_include_directories(${name} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)
  set_target_properties(${name} PROPERTIES
    LINKER_LANGUAGE CXX
    EXPORT_NAME ${namespace}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR})
  if(BUILD_SHARED_LIBS)
    target_link_options(${name} PRIVATE
      -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map
      -Wl,-z,defs -Wl,-Bsymbolic-functions)
    set_target_properties(${name} PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
  else()
    # A program that is linked as C needs the C++ library too.
    target_link_libraries(${name} INTERFACE $<$<NOT:$<LINK_LANGUAGE:CXX>>:stdc++>)
  endif()

  add_library(${name}_internal STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${name}_objects>)
  set_target_properties(${name}_internal PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name}_internal INTERFACE
    ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
  target_compile_definitions(${name}_internal INTERFACE
    $<TARGET_PROPERTY:${name}_objects,INTERFACE_COMPILE_DEFINITIONS>)
  foreach(dependency IN LISTS ARG_LINK)
    target_link_libraries(${name} PUBLIC ${dependency})
    target_link_libraries(${name}_internal PUBLIC ${dependency}_internal)
  endforeach()
endfunction()

include(cmake/version.cmake)
file(GLOB VO_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/source/vo/*.cpp)
file(GLOB XML_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/source/xml/*/*.cpp)
voxml_library(vo vo SOURCES ${VO_SOURCES})
voxml_library(voxml xml SOURCES ${XML_SOURCES} LINK vo)
voxml_version_header(voxml_objects ${PROJECT_SOURCE_DIR}/source/xml/base/xml_module.cpp)

# The importer, which alone needs more than the standard libraries.
if(VOXML_BUILD_IMPORT OR VOXML_BUILD_TESTS OR VOXML_BUILD_TOOL)
  find_package(EXPAT 2.4 REQUIRED)
  file(GLOB IMPORT_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/source/import/*.cpp)
  voxml_library(voxml_import import SOURCES ${IMPORT_SOURCES} LINK voxml)
  # Until 2.6 the header shows the protection against amplification to those who set this.
  target_compile_definitions(voxml_import_objects PRIVATE XML_DTD)
  set_target_properties(voxml_import PROPERTIES OUTPUT_NAME voxml-import)
  foreach(target voxml_import voxml_import_objects voxml_import_internal)
    target_link_libraries(${target} PRIVATE EXPAT::EXPAT)
  endforeach()
endif()
