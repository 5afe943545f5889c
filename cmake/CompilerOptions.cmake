# How every target of this tree is compiled and linked.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off)
if(ZARNIC_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()

if(ZARNIC_SANITIZER STREQUAL "address")
    set(sanitizer_options -fsanitize=address,undefined -fno-sanitize-recover=undefined)
elseif(ZARNIC_SANITIZER STREQUAL "thread")
    set(sanitizer_options -fsanitize=thread)
elseif(ZARNIC_SANITIZER)
    message(FATAL_ERROR "ZARNIC_SANITIZER is address, thread or empty, not ${ZARNIC_SANITIZER}")
endif()
if(ZARNIC_SANITIZER)
    # With a sanitizer in the way gcc sees uninitialised values in its own library's templates.
    add_compile_options(-fno-omit-frame-pointer -Wno-maybe-uninitialized ${sanitizer_options})
    add_link_options(${sanitizer_options})
else()
    # A sanitizer's own symbols stay open until the program loads; ours never do.
    add_link_options(LINKER:-z,defs)
endif()

# Only what is installed: neither tool is needed.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER AND PROJECT_IS_TOP_LEVEL)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM AND PROJECT_IS_TOP_LEVEL)
    add_link_options(-fuse-ld=mold)
endif()

# One place says the version: the project command.
set_source_files_properties(platform/foundation/base/Version.cpp PROPERTIES COMPILE_DEFINITIONS
    "ZARNIC_VERSION_NUMBER=${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR};ZARNIC_VERSION_STRING=\"${PROJECT_VERSION}\"")
