# warnings       what every target of the tree is compiled with
# hardened       what is delivered: a stray write finds guard words, checked buffers and read-only tables in its way
# lean_code      the tool and the platform library: no exceptions, no run-time types, each function its own section
# lean_program   how they are linked: libc and the platform library at run time, nothing else

add_library(warnings INTERFACE)
target_compile_options(warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Wformat=2)
target_include_directories(warnings INTERFACE ${PROJECT_SOURCE_DIR})

# Binding every function at start makes the table of their addresses read-only. It costs each run a look-up of those that
# are never called, in instructions half as much again: docs/performance.md.
option(CFGTOOL_BIND_NOW "Bind all functions at start" ON)
add_library(hardened INTERFACE)
target_compile_options(hardened INTERFACE -fstack-protector-strong -fstack-clash-protection
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3>) # which needs an optimising compiler
target_link_options(hardened INTERFACE -Wl,-z,relro -Wl,-z,noexecstack
    $<IF:$<BOOL:${CFGTOOL_BIND_NOW}>,-Wl$<COMMA>-z$<COMMA>now,-Wl$<COMMA>-z$<COMMA>lazy>)

add_library(lean_code INTERFACE)
target_link_libraries(lean_code INTERFACE warnings)
target_compile_options(lean_code INTERFACE
    -fno-exceptions -fno-rtti -fno-threadsafe-statics -ffp-contract=off -ffunction-sections -fdata-sections
    $<$<CONFIG:Release>:-fno-asynchronous-unwind-tables>)

# Packed relative relocations make the tool smaller and start faster; they need glibc 2.36 or later on the board.
include(CheckLinkerFlag)
check_linker_flag(CXX -Wl,-z,pack-relative-relocs HAVE_PACKED_RELOCATIONS)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^arm") # the linker takes the option there and ignores it
    set(HAVE_PACKED_RELOCATIONS OFF)
endif()
option(CFGTOOL_PACKED_RELOCATIONS "Pack relative relocations" ${HAVE_PACKED_RELOCATIONS})

add_library(lean_program INTERFACE)
target_link_libraries(lean_program INTERFACE hardened)
target_link_options(lean_program INTERFACE
    -static-libgcc -static-libstdc++ -Wl,--gc-sections -Wl,--as-needed -Wl,-O1 -Wl,--hash-style=gnu)
if(CFGTOOL_PACKED_RELOCATIONS)
    target_link_options(lean_program INTERFACE -Wl,-z,pack-relative-relocs)
endif()
