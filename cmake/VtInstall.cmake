# The package that find_package(vtcontrolcolorscheme) and pkg-config find after an installation.
include(CMakePackageConfigHelpers)
set(vt_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vtcontrolcolorscheme)
set(vt_resources_dir ${CMAKE_INSTALL_DATADIR}/vtcontrolcolorscheme/resources)

install(EXPORT vtcontrolcolorscheme
    NAMESPACE vtcontrolcolorscheme::
    FILE vtcontrolcolorschemeTargets.cmake
    DESTINATION ${vt_package_dir})
configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/vtcontrolcolorschemeConfig.cmake.in
    ${PROJECT_BINARY_DIR}/vtcontrolcolorschemeConfig.cmake
    INSTALL_DESTINATION ${vt_package_dir}
    PATH_VARS vt_resources_dir)
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/vtcontrolcolorschemeConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/vtcontrolcolorschemeConfig.cmake
    ${PROJECT_BINARY_DIR}/vtcontrolcolorschemeConfigVersion.cmake
    DESTINATION ${vt_package_dir})

# The whole list of libraries is named, so that a static link works without --static too; the
# symbol pulls the embedded icons out of the archive.
if(BUILD_SHARED_LIBS)
    set(vt_pc_flags "")
    set(vt_pc_defines "")
else()
    set(vt_pc_flags " -Wl,-u,VTControlColorScheme_resources")
    set(vt_pc_defines " -DVOBASE_STATIC_DEFINE -DVOMAP_STATIC_DEFINE -DVTGISCORE_STATIC_DEFINE -DVTCONTROLBASE_STATIC_DEFINE -DVTCONTROLCOLORSCHEME_STATIC_DEFINE")
endif()
# Relative to the file, because the prefix may change when the package is installed or moved.
file(RELATIVE_PATH vt_pc_prefix
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" vt_pc_prefix ${vt_pc_prefix})
configure_file(
    ${PROJECT_SOURCE_DIR}/cmake/vtcontrolcolorscheme.pc.in
    ${PROJECT_BINARY_DIR}/vtcontrolcolorscheme.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vtcontrolcolorscheme.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Hosts may ship this file below their own application's folder, as resources/warning.gif.
install(FILES ${vt_warning_movie}
    DESTINATION ${vt_resources_dir})
install(FILES README.md CHANGELOG.md NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR})
