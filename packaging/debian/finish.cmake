# Run by cpack before it makes the packages: each gets its copyright, changelog and lintian overrides, and what Debian
# wants compressed is. Debian's zsh looks for completions in a folder of its own.
unset(ENV{DESTDIR}) # left over from the part that was installed last

# The list of changes is upstream's; Debian's own names the version and its day, in Debian's format.
file(READ ${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md changes)
if(NOT changes MATCHES "\n## ${CPACK_PACKAGE_VERSION}, ([0-9-]+)\n")
    message(FATAL_ERROR "CHANGELOG.md: there is no version ${CPACK_PACKAGE_VERSION}")
endif()
execute_process(COMMAND date -u -R -d ${CMAKE_MATCH_1} OUTPUT_VARIABLE day COMMAND_ERROR_IS_FATAL ANY)
set(debian_changes "${CPACK_DEBIAN_PACKAGE_SOURCE} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * What has changed is in changelog.gz.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${day}")

# put FILE FOLDER NAME
function(put file folder name)
    file(INSTALL ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${file} DESTINATION ${folder} RENAME ${name}
         PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

foreach(part IN ITEMS cfgtool platform dev simulator)
    string(TOUPPER ${part} key)
    set(package ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
    if(NOT package) # the simulator may be left out
        continue()
    endif()
    set(share ${CPACK_TEMPORARY_DIRECTORY}/${part}/usr/share)
    put(copyright ${share}/doc/${package} copyright)
    put(../../CHANGELOG.md ${share}/doc/${package} changelog)
    file(WRITE ${share}/doc/${package}/changelog.Debian "${debian_changes}")
    file(CHMOD ${share}/doc/${package}/changelog.Debian PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    put(lintian-overrides ${share}/lintian/overrides ${package})
    file(GLOB pages ${share}/man/man*/*)
    execute_process(COMMAND gzip -9n ${share}/doc/${package}/changelog
                    ${share}/doc/${package}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(RENAME ${CPACK_TEMPORARY_DIRECTORY}/cfgtool/usr/share/zsh/site-functions
            ${CPACK_TEMPORARY_DIRECTORY}/cfgtool/usr/share/zsh/vendor-completions)
# Settings are below /etc in Debian, whatever the prefix.
file(RENAME ${CPACK_TEMPORARY_DIRECTORY}/platform/usr/etc ${CPACK_TEMPORARY_DIRECTORY}/platform/etc)
# Folders were made under the umask of whoever packs.
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -type d -exec chmod 0755 {} + COMMAND_ERROR_IS_FATAL ANY)
