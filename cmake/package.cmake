# Debian packages, made by `cpack`, of a build with shared libraries and everything in it that is
# installed under /usr; scripts/package makes such a build. Who makes packages is their maintainer:
# DEBFULLNAME and DEBEMAIL tell, as Debian's own tools read them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "voxml developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # Each package has its own.
set(CPACK_PACKAGE_CONTACT "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE voxml)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})

# A package for each component. `depends` is what cannot be seen in its binaries; the parts of one
# build belong together, so they depend on each other in this very version.
function(voxml_package component name section depends summary description)
  string(TOUPPER ${component} key)
  set(same "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
  string(REPLACE "SAME" "${same}" depends "${depends}")
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SHLIBDEPS ON PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
  if(section STREQUAL libs) # These are written while the packages are made.
    set(control ${PROJECT_BINARY_DIR}/package/${name})
    set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA ${control}/symbols ${control}/triggers
      PARENT_SCOPE)
  endif()
endfunction()

set(about "voxml reads and writes XML for programs in C and C++. Every node of a
tree is immutable once shared, and counted: a copy shares everything, and a
change copies only what it changes.
.
This package has")
voxml_package(runtime libvoxml1 libs ""
  "XML library with immutable, shareable trees"
  "${about} the shared libraries libvo and libvoxml.")
voxml_package(import libvoxml-import1 libs "libvoxml1 SAME"
  "XML library with immutable, shareable trees: importer"
  "${about} the shared library that reads any well-formed XML
with Expat.")
voxml_package(devel libvoxml-dev libdevel "libvoxml1 SAME, libc6-dev"
  "XML library with immutable, shareable trees: development"
  "${about} what programs are built with: headers, also for C++ and
for the importer, CMake and pkg-config files, printers for gdb, and examples.")
voxml_package(import_devel libvoxml-import-dev libdevel "libvoxml-dev SAME, libvoxml-import1 SAME"
  "XML library with immutable, shareable trees: development of importers"
  "${about} what programs that use the importer are linked with.")
voxml_package(tool voxml text "libvoxml1 SAME, libvoxml-import1 SAME"
  "checks, shows and converts XML files"
  "${about} the command-line tool: it checks files, writes their
canonical form, converts them between character sets and shows their trees.")

set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/package-stage.cmake)
set(CPACK_VOXML_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_VOXML_BINARY ${PROJECT_BINARY_DIR})
include(CPack)
