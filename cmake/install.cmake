# Installs headers, libraries, the tool, the CMake package `voxml` and the pkg-config files.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/voxml)
set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/voxml-${PROJECT_VERSION_MAJOR})

# The libraries find each other, and the tool the libraries, wherever the prefix is moved to.
set_target_properties(vo voxml PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS vo voxml EXPORT voxml)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${include_dir})
if(TARGET voxml_tool)
  file(RELATIVE_PATH lib_from_bin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(voxml_tool PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
  install(TARGETS voxml_tool)
endif()

install(EXPORT voxml FILE voxml-config.cmake NAMESPACE voxml:: DESTINATION ${package_dir})
write_basic_package_version_file(voxml-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/voxml-config-version.cmake DESTINATION ${package_dir})

# pkg-config files. A static library leaves its need of the C++ library to whoever links it.
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
function(voxml_pkgconfig name description requires)
  set(libs -l${name})
  if(NOT BUILD_SHARED_LIBS)
    string(APPEND libs " -lstdc++")
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
voxml_pkgconfig(vo "Base runtime of voxml: counted objects, strings, containers, charsets" "")
voxml_pkgconfig(voxml "${PROJECT_DESCRIPTION}" "vo = ${PROJECT_VERSION}")
