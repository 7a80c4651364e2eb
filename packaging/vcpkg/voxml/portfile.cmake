# Builds the sources that the port lies in: vcpkg install voxml --overlay-ports=packaging/vcpkg
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS options
  FEATURES import VOXML_BUILD_IMPORT tool VOXML_BUILD_TOOL)
string(COMPARE EQUAL "${VCPKG_LIBRARY_LINKAGE}" dynamic shared)
vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS ${options} -DBUILD_SHARED_LIBS=${shared} -DVOXML_BUILD_TESTS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/voxml)
vcpkg_fixup_pkgconfig()
if("tool" IN_LIST FEATURES)
  vcpkg_copy_tools(TOOL_NAMES voxml AUTO_CLEAN)
endif()

file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share"
  "${CURRENT_PACKAGES_DIR}/share/gdb" "${CURRENT_PACKAGES_DIR}/share/doc")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
