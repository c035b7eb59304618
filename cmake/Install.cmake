# What `cmake --install` puts where: the plug-in, the public headers, the programs' pages, schemas, types and reference, and
# what tells pkg-config and CMake about them.

include(CMakePackageConfigHelpers)

set(KELMORA_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/kelmora CACHE STRING "Where to install the plug-in")
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/kelmora_json)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kelmora_json)

install(TARGETS kelmora_json LIBRARY DESTINATION ${KELMORA_PLUGIN_DIR})
install(DIRECTORY include/ DESTINATION ${header_dir} FILES_MATCHING PATTERN *.h PATTERN kelmora_config.h EXCLUDE)

# The header that has this build's values.
configure_file(cmake/kelmora_config.h.in kelmora_config.h @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kelmora_config.h DESTINATION ${header_dir})

# The programs' pages; the programs themselves are installed where they were built.
install(FILES docs/kelmora-host.1 docs/kelmora-selftest.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# What tells front-end developers about the documents; the reference where `make docs` has made it.
install(DIRECTORY schemas types DESTINATION ${CMAKE_INSTALL_DATADIR}/kelmora_json)
install(DIRECTORY build/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/reference OPTIONAL)

configure_package_config_file(
    cmake/kelmora_json-config.cmake.in kelmora_json-config.cmake
    INSTALL_DESTINATION ${package_dir}
    PATH_VARS header_dir KELMORA_PLUGIN_DIR)
write_basic_package_version_file(kelmora_json-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kelmora_json-config.cmake ${PROJECT_BINARY_DIR}/kelmora_json-config-version.cmake
        DESTINATION ${package_dir})

# Folders below the prefix stay relative to it; the prefix itself is known when it is installed only.
cmake_path(APPEND pc_libdir "\${prefix}" ${CMAKE_INSTALL_LIBDIR})
cmake_path(APPEND pc_includedir "\${prefix}" ${CMAKE_INSTALL_INCLUDEDIR})
cmake_path(APPEND pc_plugindir "\${prefix}" ${KELMORA_PLUGIN_DIR})
set(pc_prefix @CMAKE_INSTALL_PREFIX@)
set(pc_file ${PROJECT_BINARY_DIR}/kelmora_json.pc)
configure_file(cmake/kelmora_json.pc.in ${pc_file}.in @ONLY)
install(CODE "configure_file(\"${pc_file}.in\" \"${pc_file}\" @ONLY)")
install(FILES ${pc_file} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
