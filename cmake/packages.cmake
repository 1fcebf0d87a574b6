# Debian packages, by cpack: docs/installing.md. packaging/debian/finish.cmake adds what Debian asks of every package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/finish.cmake)
set(CFGTOOL_MAINTAINER "cfgtool developers <cfgtool@packages.invalid>" CACHE STRING "Who answers for the packages")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CFGTOOL_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE cfgtool)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEB_COMPONENT_INSTALL ON)

# What a package needs of the distribution is looked up, all but packed relocations, which that look-up does not see. The
# library is named here, without a version: the package of a board's own library provides that name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
if(CMAKE_CROSSCOMPILING) # Debian's cross compiler has its libraries there
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS /usr/${CMAKE_LIBRARY_ARCHITECTURE}/lib)
    execute_process(COMMAND dpkg-architecture -t${CMAKE_LIBRARY_ARCHITECTURE} -qDEB_HOST_ARCH ERROR_QUIET
                    OUTPUT_VARIABLE CPACK_DEBIAN_PACKAGE_ARCHITECTURE OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()
if(CFGTOOL_PACKED_RELOCATIONS)
    set(loader "libc6 (>= 2.36)")
endif()

set(CPACK_COMPONENTS_ALL tool manual completion platform dev)
set(CPACK_COMPONENT_TOOL_GROUP cfgtool)
set(CPACK_COMPONENT_MANUAL_GROUP cfgtool)
set(CPACK_COMPONENT_COMPLETION_GROUP cfgtool)
set(CPACK_DEBIAN_CFGTOOL_PACKAGE_NAME cfgtool)
set(CPACK_DEBIAN_CFGTOOL_PACKAGE_DEPENDS libzentro-platform1 ${loader})
set(CPACK_DEBIAN_CFGTOOL_DESCRIPTION "configuration command of a board-management controller
An operator who is logged in to an IPMI management controller types one
cfgtool command for each change: fans, power, boot, users, network, traps,
sensors, firmware. It checks the words and the privilege, asks before anything
dangerous, talks to the controller's IPMI service and writes the operation
log. cfgtool-state shows how the controller is set and changes nothing.")

set(CPACK_DEBIAN_PLATFORM_PACKAGE_NAME libzentro-platform1)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_DEPENDS ${loader})
# cpack would name the simulator's package beside it, whose library is for nobody else.
file(WRITE ${PROJECT_BINARY_DIR}/debian/shlibs
     "libzentro_platform 1 libzentro-platform1 (>= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})\n")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/debian/shlibs)
foreach(name IN ITEMS conffiles postinst postrm triggers)
    list(APPEND CPACK_DEBIAN_PLATFORM_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/${name})
endforeach()
set(CPACK_DEBIAN_PLATFORM_DESCRIPTION "platform library of a board-management controller, for plain Linux
What cfgtool asks of the controller that it runs on: messages, files,
programs, operation log, hardware. This library does it with what any Linux
has. A board with a library of its own has a package of its own that provides
this name.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libzentro-platform-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libzentro-platform1 (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})" ${loader})
set(CPACK_DEBIAN_DEV_DESCRIPTION "platform library of a board-management controller: development files
The header that a platform library for cfgtool implements, what CMake and
pkg-config need to find it, and platform-check, which tells whether a library
keeps the promises of that header.")

if(TARGET ipmcd)
    list(APPEND CPACK_COMPONENTS_ALL simulator)
    set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME cfgtool-simulator)
    set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS cfgtool)
    set(CPACK_DEBIAN_SIMULATOR_DESCRIPTION "simulated board-management controller
ipmcd stands for the IPMI service of a management controller, with fans,
power, users, sensors, event log and firmware. It shows its traffic in words
and plays faults to order, so that cfgtool can be tried without any
controller. With it come the files of a controller's disk.")
endif()
include(CPack)
