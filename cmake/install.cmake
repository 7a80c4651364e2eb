# Installs the components `runtime` (the shared libraries), `tool`, `import` (the shared library of
# the importer), and `devel` and `import_devel`, which programs are built with: static libraries, the
# CMake package `voxml` and the pkg-config files; `devel` also has all headers and the examples.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/voxml)
set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/voxml-${PROJECT_VERSION_MAJOR})

# libvoxml finds libvo, and the tool the libraries, wherever the prefix is moved to. Packages for a
# system, which need no such path, set CMAKE_SKIP_INSTALL_RPATH.
set_target_properties(voxml PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS vo voxml EXPORT voxml
  INCLUDES DESTINATION ${include_dir}
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT devel
  ARCHIVE COMPONENT devel)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${include_dir} COMPONENT devel)
if(TARGET voxml_tool)
  file(RELATIVE_PATH lib_from_bin /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(voxml_tool PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
  install(TARGETS voxml_tool COMPONENT tool)
  set(pages ${PROJECT_BINARY_DIR}/cli)
  install(FILES ${pages}/voxml.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  install(FILES ${pages}/voxml.bash RENAME voxml COMPONENT tool
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${pages}/_voxml COMPONENT tool
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
  install(FILES ${pages}/voxml.fish COMPONENT tool
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR}
  COMPONENT runtime)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR}
  COMPONENT devel PATTERN CMakeLists.txt EXCLUDE)

# Where a gdb of the system looks for what belongs to a library of the system.
install(FILES ${PROJECT_SOURCE_DIR}/gdb/printers.py
  DESTINATION ${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR}
  RENAME libvo.so.${PROJECT_VERSION}-gdb.py COMPONENT devel)

install(EXPORT voxml FILE voxml-libraries.cmake NAMESPACE voxml:: DESTINATION ${package_dir}
  COMPONENT devel)
configure_file(cmake/voxml-config.cmake.in voxml-config.cmake @ONLY)
write_basic_package_version_file(voxml-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/voxml-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/voxml-config-version.cmake DESTINATION ${package_dir}
  COMPONENT devel)

# pkg-config files. A static library leaves its need of the C++ library to whoever links it.
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
function(voxml_pkgconfig name component description requires)
  set(libs -l${name})
  if(NOT BUILD_SHARED_LIBS)
    string(APPEND libs " -lstdc++")
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()
voxml_pkgconfig(vo devel "Base runtime of voxml: counted objects, strings, containers, charsets" "")
voxml_pkgconfig(voxml devel "${PROJECT_DESCRIPTION}" "vo = ${PROJECT_VERSION}")

if(TARGET voxml_import)
  set_target_properties(voxml_import PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS voxml_import EXPORT voxml-import
    LIBRARY COMPONENT import NAMELINK_COMPONENT import_devel
    ARCHIVE COMPONENT import_devel)
  install(EXPORT voxml-import NAMESPACE voxml:: DESTINATION ${package_dir} COMPONENT import_devel)
  set(import_requires "voxml = ${PROJECT_VERSION}")
  if(NOT BUILD_SHARED_LIBS)
    string(APPEND import_requires ", expat")
  endif()
  voxml_pkgconfig(voxml-import import_devel "Reads any XML document into the trees of voxml"
    "${import_requires}")
endif()

if(PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall COMMENT "Removing what was installed last"
    COMMAND ${CMAKE_COMMAND} -P ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake)
endif()
