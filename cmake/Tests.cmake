# Each folder under tests/ is one program; each of its tests runs in a process of its own, so that
# process-wide state starts fresh.
find_package(GTest REQUIRED)
include(GoogleTest)

# Names the build in test names, so that several builds can be run together.
set(test_prefix "")
if(ZARNIC_SANITIZER)
    set(test_prefix "${ZARNIC_SANITIZER}/")
endif()
file(GLOB support_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/*.cpp)
add_library(zarnic-test-main OBJECT ${support_sources})
target_include_directories(zarnic-test-main PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(zarnic-test-main PUBLIC GTest::gmock PRIVATE PkgConfig::SDBUS)
set_source_files_properties(${PROJECT_SOURCE_DIR}/tests/support/Places.cpp PROPERTIES
    COMPILE_DEFINITIONS "ZARNIC_SOURCE_DIR=\"${PROJECT_SOURCE_DIR}\";ZARNIC_GALLERY=\"$<$<TARGET_EXISTS:zarnic-gallery>:$<TARGET_FILE:zarnic-gallery>>\"")
# A third of what a test's compilation takes, so where only gcc looks at it, it is compiled once: the
# tools of clang cannot read what gcc makes of it.
option(ZARNIC_PRECOMPILED_HEADERS "Compile the test framework's headers once (gcc)" OFF)
if(ZARNIC_PRECOMPILED_HEADERS)
    target_precompile_headers(zarnic-test-main PRIVATE <gmock/gmock.h>)
    # Lets ccache see what was compiled before.
    target_compile_options(zarnic-test-main PUBLIC -fpch-preprocess)
endif()

function(zarnic_test_program topic)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${topic}/*.cpp)
    set(program ${topic}_tests)
    add_executable(${program} ${sources})
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${program} PRIVATE zarnic zarnic-test-main)
    if(ZARNIC_PRECOMPILED_HEADERS)
        target_precompile_headers(${program} REUSE_FROM zarnic-test-main)
    endif()
    foreach(library zarnic-sdl zarnic-testing)
        if(TARGET ${library})
            target_link_libraries(${program} PRIVATE ${library})
        endif()
    endforeach()
    zarnic_discover(${program} ${topic} "-*Soak*" unit)
    zarnic_discover(${program} ${topic} "*Soak*" soak)
endfunction()

function(zarnic_discover program topic filter label)
    set(timeout 60)
    if(label STREQUAL "soak")
        set(timeout 1800)
    elseif(ZARNIC_SANITIZER)
        set(timeout 180)
    endif()
    gtest_discover_tests(${program} TEST_PREFIX "${test_prefix}${topic}." TEST_FILTER "${filter}"
        DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS ${label} TIMEOUT ${timeout})
endfunction()

file(GLOB_RECURSE test_files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/tests
    ${PROJECT_SOURCE_DIR}/tests/*_test.cpp)
list(TRANSFORM test_files REPLACE "/.*" "" OUTPUT_VARIABLE test_topics)
list(REMOVE_DUPLICATES test_topics)
# A sanitizer that costs much may be asked for some topics only.
set(ZARNIC_TEST_TOPICS "" CACHE STRING "Folders of tests/ to build; empty for all")
# A window is opened by the gallery's program.
if(NOT TARGET zarnic-gallery)
    list(REMOVE_ITEM test_topics sdl)
endif()
foreach(topic ${test_topics})
    if(NOT ZARNIC_TEST_TOPICS OR topic IN_LIST ZARNIC_TEST_TOPICS)
        zarnic_test_program(${topic})
    endif()
endforeach()

# The readers that what is written for others is read back with.
pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)
pkg_check_modules(ZBAR REQUIRED IMPORTED_TARGET zbar)
foreach(program drawing_tests graphics_tests)
    if(TARGET ${program})
        target_link_libraries(${program} PRIVATE PkgConfig::TURBOJPEG PkgConfig::ZXING
            PkgConfig::ZBAR)
    endif()
endforeach()
# What pictures are written with, to be read.
if(TARGET drawing_tests)
    target_link_libraries(drawing_tests PRIVATE GIF::GIF PkgConfig::JPEG PkgConfig::WEBP)
endif()
if(TARGET sdl_tests)
    add_dependencies(sdl_tests zarnic-gallery)
endif()
