# What is installed, in components, so that a board takes the few files that it needs:
#
#   tool        the programs of a board
#   platform    the platform library for plain Linux; a board with a library of its own leaves it out
#   manual      manual pages, documentation, examples
#   completion  completion by TAB in bash, zsh and fish
#   dev         what it takes to write a platform library, or to use this one
#   simulator   the simulated controller, the files of its disk, and the platform library that heeds everybody
#
# packaging/files lists them all. Modes of files are those written here, whatever umask and checkout.
set(file_mode OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(program_mode ${file_mode} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)

set(tools cfgtool cfgtool-state cfgtool-verdict)
install(TARGETS ${tools} RUNTIME PERMISSIONS ${program_mode} COMPONENT tool)

install(TARGETS zentro_platform EXPORT platform
        LIBRARY PERMISSIONS ${file_mode} COMPONENT platform NAMELINK_COMPONENT dev
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zentro)
install(FILES packaging/logrotate DESTINATION ${CMAKE_INSTALL_SYSCONFDIR}/logrotate.d RENAME zentro-platform
        PERMISSIONS ${file_mode} COMPONENT platform)
install(FILES packaging/tmpfiles.conf DESTINATION lib/tmpfiles.d RENAME zentro-platform.conf
        PERMISSIONS ${file_mode} COMPONENT platform)
install(TARGETS platform-check RUNTIME PERMISSIONS ${program_mode} COMPONENT dev)
install(FILES packaging/platform-check.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT dev)

# In a folder of the project's own, so that the line that includes it is the same in the tree and outside.
install(FILES platform/platform.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zentro/platform COMPONENT dev)

# find_package(ZentroPlatform) and pkg-config zentro-platform: what was installed may be moved, both look beside themselves.
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ZentroPlatform)
set_target_properties(zentro_platform PROPERTIES EXPORT_NAME platform)
install(EXPORT platform NAMESPACE ZentroPlatform:: FILE ZentroPlatformConfig.cmake DESTINATION ${config_folder}
        COMPONENT dev)
include(CMakePackageConfigHelpers)
write_basic_package_version_file(ZentroPlatformConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZentroPlatformConfigVersion.cmake DESTINATION ${config_folder} COMPONENT dev)
file(RELATIVE_PATH up_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(packaging/zentro-platform.pc.in zentro-platform.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zentro-platform.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

install(FILES docs/event-table.md docs/installing.md docs/linux-platform.md docs/sel-export.md docs/state.md docs/status.md docs/verdict.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT manual)
install(FILES state/schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/cfgtool RENAME state.schema.json COMPONENT manual)
install(FILES verdict/schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/cfgtool RENAME verdict.schema.json COMPONENT manual)
install(FILES ipmcd/disk/data/cli.conf packaging/examples/blacklist
        DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT manual)

if(TARGET ipmcd)
    install(TARGETS ipmcd RUNTIME PERMISSIONS ${program_mode} COMPONENT simulator)
    install(TARGETS zentro_platform_simulator LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/cfgtool/simulator
            PERMISSIONS ${file_mode} COMPONENT simulator NAMELINK_SKIP)
    install(FILES packaging/ipmcd.service DESTINATION lib/systemd/system PERMISSIONS ${file_mode} COMPONENT simulator)
    install(FILES docs/ipmcd.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT simulator)
    install(DIRECTORY ipmcd/disk DESTINATION ${CMAKE_INSTALL_DATADIR}/cfgtool COMPONENT simulator
            FILE_PERMISSIONS ${file_mode}
            PATTERN zntool PERMISSIONS ${program_mode}
            PATTERN recorded PERMISSIONS ${program_mode})
endif()

# What ./desk runs.
add_custom_target(desk DEPENDS ${tools} platform-check manual-pages)
if(TARGET ipmcd)
    add_dependencies(desk ipmcd zentro_platform_simulator)
endif()
