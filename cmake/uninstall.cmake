# Removes the files of the last installation. Run in the build folder, where installing leaves its
# lists of files.
file(GLOB manifests install_manifest*.txt)
if(NOT manifests)
  message(FATAL_ERROR "nothing was installed from this build")
endif()
foreach(manifest IN LISTS manifests)
  file(STRINGS ${manifest} installed)
  list(TRANSFORM installed PREPEND "$ENV{DESTDIR}")
  file(REMOVE ${installed} ${manifest})
endforeach()
