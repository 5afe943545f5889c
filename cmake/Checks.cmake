# What no program can test of itself, as CTest tests of the label "check".
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(checks ${PROJECT_SOURCE_DIR}/scripts/checks)
cmake_host_system_information(RESULT processors QUERY NUMBER_OF_LOGICAL_CORES)

function(zarnic_check name)
    cmake_parse_arguments(PARSE_ARGV 1 check "" "TIMEOUT;PROCESSORS" "COMMAND")
    add_test(NAME check.${name} COMMAND ${check_COMMAND} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    set_tests_properties(check.${name} PROPERTIES LABELS check)
    foreach(property TIMEOUT PROCESSORS)
        if(check_${property})
            set_tests_properties(check.${name} PROPERTIES ${property} ${check_${property}})
        endif()
    endforeach()
endfunction()

zarnic_check(format COMMAND ${PROJECT_SOURCE_DIR}/scripts/format --check)
zarnic_check(floors COMMAND ${Python3_EXECUTABLE} ${checks}/floors.py)
zarnic_check(umbrella COMMAND ${Python3_EXECUTABLE} ${checks}/umbrella.py)
zarnic_check(tidy COMMAND ${Python3_EXECUTABLE} ${checks}/tidy.py ${PROJECT_BINARY_DIR}
    PROCESSORS ${processors} TIMEOUT 1200)

# Each public header compiles alone.
zarnic_check(headers COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR}
    --target all_verify_interface_header_sets PROCESSORS ${processors} TIMEOUT 600)

set(library_files "")
foreach(library ${libraries})
    list(APPEND library_files $<TARGET_FILE:${library}>)
endforeach()
zarnic_check(symbols COMMAND ${Python3_EXECUTABLE} ${checks}/symbols.py ${library_files})

# Another project finds the installed package, both ways, and README.md keeps its word.
if(TARGET zarnic-sdl AND TARGET zarnic-testing AND EXISTS ${PROJECT_SOURCE_DIR}/include/zarnic/zarnic.h)
    zarnic_check(consumer COMMAND ${PROJECT_SOURCE_DIR}/tests/consumer/run
        ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR} ${CMAKE_CXX_COMPILER} TIMEOUT 300)
endif()
