# The libraries, floor by floor. Every source file of a floor's folder belongs to it.

# zarnic_library(NAME FLOORS folder... [PUBLIC_LINK target...] [PRIVATE_LINK target...])
function(zarnic_library name)
    cmake_parse_arguments(PARSE_ARGV 1 library "" "" "FLOORS;PUBLIC_LINK;PRIVATE_LINK")
    set(sources "")
    foreach(floor ${library_FLOORS})
        file(GLOB_RECURSE floor_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${floor}/*.cpp)
        list(APPEND sources ${floor_sources})
    endforeach()
    if(NOT sources)
        return()
    endif()
    add_library(${name} SHARED ${sources})
    string(REGEX REPLACE "^zarnic-" "" alias ${name})
    add_library(Zarnic::${alias} ALIAS ${name})
    target_compile_features(${name} PUBLIC cxx_std_20)
    target_include_directories(${name}
        PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        PRIVATE ${PROJECT_SOURCE_DIR})
    set(exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    # The library's calls of its own functions are settled when it is linked, not at each start.
    target_link_options(${name} PRIVATE LINKER:--version-script=${exports}
        LINKER:-Bsymbolic-functions)
    target_link_libraries(${name} PUBLIC ${library_PUBLIC_LINK} PRIVATE ${library_PRIVATE_LINK})
    # Before 1.0 every minor version may change the binary interface.
    set_target_properties(${name} PROPERTIES EXPORT_NAME ${alias} VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} LINK_DEPENDS ${exports})
    set_property(GLOBAL APPEND PROPERTY ZARNIC_LIBRARIES ${name})
endfunction()

zarnic_library(zarnic
    FLOORS
        platform/foundation
        platform/services
        platform/drawing
        platform/layers
        platform/uikit
        model
        storage localisation device utilities
        imagecache graphics
        controllers controls
        windows
        host/headless
    PUBLIC_LINK Threads::Threads
    PRIVATE_LINK
        GIF::GIF
        PkgConfig::CAIRO
        PkgConfig::CRYPTO
        ${CMAKE_DL_LIBS}
        PkgConfig::ICU
        PkgConfig::JPEG
        PkgConfig::PLIST
        PkgConfig::QRENCODE
        PkgConfig::SDBUS
        PkgConfig::SPNG
        PkgConfig::SQLITE
        PkgConfig::WEBP
        PkgConfig::ZXING)
# Its functions are looked up when they are first needed.
target_include_directories(zarnic PRIVATE ${CURL_INCLUDE_DIRS})
zarnic_library(zarnic-sdl FLOORS host/sdl PUBLIC_LINK zarnic PRIVATE_LINK PkgConfig::SDL2)
zarnic_library(zarnic-testing FLOORS testing PUBLIC_LINK zarnic)

# The public headers, each with the library that implements it.
file(GLOB_RECURSE testing_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/zarnic/testing/*.h)
file(GLOB_RECURSE sdl_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/zarnic/sdl/*.h)
file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/zarnic/*.h)
list(REMOVE_ITEM headers ${testing_headers} ${sdl_headers})

function(zarnic_headers name)
    if(TARGET ${name} AND ARGN)
        target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/include
            FILES ${ARGN})
    endif()
endfunction()
zarnic_headers(zarnic ${headers})
zarnic_headers(zarnic-sdl ${sdl_headers})
zarnic_headers(zarnic-testing ${testing_headers})
