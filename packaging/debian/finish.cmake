# Run by cpack before it makes the packages: each gets its copyright, changelog and lintian overrides, and what Debian
# wants compressed is. Debian's zsh looks for completions in a folder of its own.
unset(ENV{DESTDIR}) # left over from the part that was installed last

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
    put(changelog ${share}/doc/${package} changelog.Debian)
    put(lintian-overrides ${share}/lintian/overrides ${package})
    file(GLOB pages ${share}/man/man*/*)
    execute_process(COMMAND gzip -9n ${share}/doc/${package}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(RENAME ${CPACK_TEMPORARY_DIRECTORY}/cfgtool/usr/share/zsh/site-functions
            ${CPACK_TEMPORARY_DIRECTORY}/cfgtool/usr/share/zsh/vendor-completions)
# Settings are below /etc in Debian, whatever the prefix.
file(RENAME ${CPACK_TEMPORARY_DIRECTORY}/platform/usr/etc ${CPACK_TEMPORARY_DIRECTORY}/platform/etc)
# Folders were made under the umask of whoever packs.
execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -type d -exec chmod 0755 {} + COMMAND_ERROR_IS_FATAL ANY)
