# The contents and folders of `cmake --install`. Everything finds its parts by relative paths, so that an
# installation can be moved, and DESTDIR and --prefix need no second build.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/lwconfig)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH LWCONFIG_PREFIX_BELOW_PC ${CMAKE_INSTALL_PREFIX}/${pkgconfig_dir} ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH lib_below_bin ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}
     ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR})

install(TARGETS lwconfig EXPORT lwconfig)
install(DIRECTORY lwconfig DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h"
        PATTERN internal EXCLUDE
        PATTERN posix EXCLUDE
        PATTERN registry_format EXCLUDE
        PATTERN windows EXCLUDE)

set_target_properties(lwconfig-cli PROPERTIES INSTALL_RPATH "\$ORIGIN/${lib_below_bin}")
install(TARGETS lwconfig-cli)
install(FILES share/completion/lwconfig.bash RENAME lwconfig
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES share/completion/_lwconfig DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES share/completion/lwconfig.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES docs/lwconfig.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES docs/check.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY share/starter DESTINATION ${CMAKE_INSTALL_DATADIR}/lwconfig PATTERN .gitattributes EXCLUDE)

install(EXPORT lwconfig NAMESPACE lwconfig:: FILE lwconfig-config.cmake DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/lwconfig-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/lwconfig-config-version.cmake DESTINATION ${package_dir})
configure_file(cmake/lwconfig.pc.in ${PROJECT_BINARY_DIR}/lwconfig.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/lwconfig.pc DESTINATION ${pkgconfig_dir})
