# One program that measures the library beside its peers, in the same process, and two small ones
# whose start it measures.
find_package(benchmark REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Core Gui Network Sql Widgets)
find_package(SQLiteCpp REQUIRED)
# The other peers of JSON are headers only.
find_package(simdjson REQUIRED)
file(GLOB bench_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/*.cpp)
# The web server is that of the tests.
add_executable(zarnic-bench ${bench_sources}
    tests/support/ChildProcess.cpp tests/support/Nginx.cpp)
# Qt's peers may have meta-objects.
set_target_properties(zarnic-bench PROPERTIES AUTOMOC ON)
add_executable(zarnic-start bench/start/zarnic_start.cpp bench/Machine.cpp
    bench/ZarnicScene.cpp)
add_executable(qt-start bench/start/qt_start.cpp bench/Machine.cpp bench/QtScene.cpp)
add_executable(zarnic-fonts bench/start/zarnic_fonts.cpp)
foreach(program zarnic-bench zarnic-start zarnic-fonts qt-start)
    target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR})
endforeach()
target_compile_definitions(zarnic-bench PRIVATE ZARNIC_START="$<TARGET_FILE:zarnic-start>"
    QT_START="$<TARGET_FILE:qt-start>")
find_library(ZINT_LIBRARY zint REQUIRED)
find_library(TURBOJPEG_LIBRARY turbojpeg REQUIRED)
target_link_libraries(zarnic-bench PRIVATE
    zarnic
    benchmark::benchmark
    Qt6::Network
    Qt6::Sql
    Qt6::Widgets
    PkgConfig::CAIRO
    PkgConfig::CRYPTO
    PkgConfig::CURL
    PkgConfig::JPEG
    PkgConfig::PLIST
    PkgConfig::QRENCODE
    PkgConfig::SPNG
    PkgConfig::SQLITE
    PkgConfig::ZXING
    SQLiteCpp
    simdjson::simdjson
    ${TURBOJPEG_LIBRARY}
    ${ZINT_LIBRARY})
target_link_libraries(zarnic-start PRIVATE zarnic)
target_link_libraries(zarnic-fonts PRIVATE zarnic)
target_link_libraries(qt-start PRIVATE Qt6::Widgets)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # When it optimises fully, gcc 12 sees copies over themselves inside its own std::string.
    target_compile_options(zarnic-bench PRIVATE -Wno-restrict)
endif()
add_dependencies(zarnic-bench zarnic-start zarnic-fonts qt-start)
