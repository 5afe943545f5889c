# What `cmake --install` puts in place, and how other projects find it.
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY ZARNIC_LIBRARIES)
install(TARGETS ${libraries} EXPORT ZarnicTargets FILE_SET HEADERS)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Zarnic)
install(EXPORT ZarnicTargets NAMESPACE Zarnic:: DESTINATION ${package_folder})
configure_package_config_file(cmake/ZarnicConfig.cmake.in ZarnicConfig.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(ZarnicConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZarnicConfig.cmake
    ${PROJECT_BINARY_DIR}/ZarnicConfigVersion.cmake DESTINATION ${package_folder})

# A pkg-config file finds its prefix from its own place, so that the tree may be moved.
file(RELATIVE_PATH PREFIX_FROM_PKGCONFIG
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
function(zarnic_pkgconfig name description requires)
    set(NAME ${name})
    set(DESCRIPTION ${description})
    set(REQUIRES ${requires})
    configure_file(cmake/library.pc.in ${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
zarnic_pkgconfig(zarnic "${PROJECT_DESCRIPTION}" "")
if(TARGET zarnic-sdl)
    zarnic_pkgconfig(zarnic-sdl "Zarnic in a window or on a bare panel, through SDL2" zarnic)
endif()
if(TARGET zarnic-testing)
    zarnic_pkgconfig(zarnic-testing "A stage on which Zarnic applications are tested" zarnic)
endif()
