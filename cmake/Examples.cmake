file(GLOB_RECURSE gallery_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/examples/gallery/*.cpp)
if(gallery_sources AND TARGET zarnic-sdl)
    add_executable(zarnic-gallery ${gallery_sources})
    target_include_directories(zarnic-gallery PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(zarnic-gallery PRIVATE zarnic zarnic-sdl)
    # Its resources lie beside the program.
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/examples/gallery/zarnic-gallery.app
        ${PROJECT_BINARY_DIR}/zarnic-gallery.app SYMBOLIC)
endif()
