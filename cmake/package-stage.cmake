# Run by cpack between installing and packing: lays out share/doc of each package as Debian wants it,
# and writes the control files of the packages with libraries. A function that packaging/debian/
# *.symbols lists for an earlier version and the library lacks is an error; one that it does not list
# yet counts as new in this version.
set(source ${CPACK_VOXML_SOURCE})
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(date --date=@$ENV{SOURCE_DATE_EPOCH})
endif()
execute_process(COMMAND date --utc --rfc-email ${date} OUTPUT_VARIABLE date
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} key)
  set(package ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
  set(stage ${CPACK_TEMPORARY_DIRECTORY}/${component})
  set(doc ${stage}/usr/share/doc/${package})
  file(REMOVE ${stage}/usr/share/doc/voxml/LICENSE)
  file(MAKE_DIRECTORY ${doc})
  if(EXISTS ${stage}/usr/share/doc/voxml/examples)
    file(RENAME ${stage}/usr/share/doc/voxml/examples ${doc}/examples)
  endif()
  file(GLOB left ${stage}/usr/share/doc/voxml/*)
  if(NOT left)
    file(REMOVE_RECURSE ${stage}/usr/share/doc/voxml)
  endif()
  configure_file(${source}/packaging/debian/copyright ${doc}/copyright COPYONLY)
  configure_file(${source}/CHANGELOG.md ${doc}/changelog COPYONLY)
  configure_file(${source}/packaging/debian/changelog.in ${doc}/changelog.Debian @ONLY)
  execute_process(COMMAND gzip -9nf changelog changelog.Debian
    WORKING_DIRECTORY ${doc} COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB manual ${stage}/usr/share/man/man1/*.1)
  if(manual)
    execute_process(COMMAND gzip -9n ${manual} COMMAND_ERROR_IS_FATAL ANY)
  endif()

  file(GLOB libraries ${stage}/usr/lib/*/*.so.*.*)
  if(libraries)
    set(control ${CPACK_VOXML_BINARY}/package/${package})
    file(REMOVE_RECURSE ${control})
    file(WRITE ${control}/triggers "activate-noawait ldconfig\n")
    list(TRANSFORM libraries PREPEND -e)
    # The program looks for a source package.
    file(WRITE ${control}/debian/control "Source: voxml\n\nPackage: ${package}\nArchitecture: any\n")
    execute_process(COMMAND dpkg-gensymbols -q -c1 -p${package} -P${stage} ${libraries}
      -v${CPACK_PACKAGE_VERSION} -O${control}/symbols
      -I${source}/packaging/debian/${package}.symbols
      WORKING_DIRECTORY ${control} OUTPUT_VARIABLE log ERROR_VARIABLE log RESULT_VARIABLE status)
    if(status)
      message(FATAL_ERROR "${package} lacks functions that programs may use\n${log}")
    endif()
    file(CHMOD ${control}/symbols ${control}/triggers
      PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  endif()
endforeach()
