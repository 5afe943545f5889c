# The fuzzers: a small build of its own, of the floors that read what comes from outside. Each file
# of fuzz/ is a program with its corpus in fuzz/corpus/NAME.
if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "The fuzzers need clang++ (set CMAKE_CXX_COMPILER)")
endif()

file(GLOB fuzzers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/fuzz/*.cpp)
file(GLOB_RECURSE fuzzed_sources CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/platform/foundation/*.cpp
    ${PROJECT_SOURCE_DIR}/platform/services/*.cpp
    ${PROJECT_SOURCE_DIR}/platform/drawing/*.cpp
    ${PROJECT_SOURCE_DIR}/storage/*.cpp)

if(fuzzers)
    set(fuzz_options -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
        -fno-sanitize=vptr)
    add_library(zarnic-fuzzed STATIC ${fuzzed_sources})
    target_include_directories(zarnic-fuzzed PUBLIC include ${PROJECT_SOURCE_DIR})
    target_compile_options(zarnic-fuzzed PUBLIC ${fuzz_options})
    target_link_libraries(zarnic-fuzzed PUBLIC Threads::Threads PkgConfig::ICU PkgConfig::PLIST
        PkgConfig::CRYPTO PkgConfig::SQLITE PkgConfig::CAIRO PkgConfig::SPNG PkgConfig::JPEG
        PkgConfig::WEBP GIF::GIF PkgConfig::QRENCODE PkgConfig::ZXING)
endif()

foreach(source ${fuzzers})
    cmake_path(GET source STEM name)
    set(program ${name}_fuzzer)
    add_executable(${program} ${source})
    target_link_libraries(${program} PRIVATE zarnic-fuzzed)
    target_link_options(${program} PRIVATE -fsanitize=fuzzer,address,undefined)
    # What the fuzzer finds stays in the build tree; what is worth keeping is copied by hand.
    set(found ${PROJECT_BINARY_DIR}/corpus/${name})
    file(MAKE_DIRECTORY ${found})
    add_test(NAME fuzz.${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/checks/fuzz
        $<TARGET_FILE:${program}> ${found} ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name})
    set_tests_properties(fuzz.${name} PROPERTIES LABELS fuzz TIMEOUT 900)
endforeach()
