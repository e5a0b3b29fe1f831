# The Debian package: `cmake --build --preset release --target deb`, or `cpack -G DEB` in a complete
# build tree.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvik)
set(CPACK_PACKAGE_VENDOR "Orvik developers")
set(CPACK_PACKAGE_CONTACT "Orvik developers <support@orvik.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION mail)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "converter for e-mail address books")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Orvik opens the e-mail address books of old and new mail programs, shows
addresses beside nicknames, and saves them in another program's format. It
sorts, merges, removes duplicates, and finds the addresses in any file.

orvik is the window program; orvik-batch does the same without a display.
orvik-book converts LDIF and vCard with every field that they hold, says what
became of each, and finds the people in mail folders.")
# What the programs load while they run is no shared library that they are linked with.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "hicolor-icon-theme, libqt6sql6-sqlite, libqt6svg6, qt6-qpa-plugins")

# Gives the staged files the form that Debian asks for.
set(ORVIK_DEBIAN_FILES ${CMAKE_CURRENT_LIST_DIR})
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/finish.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/repack.cmake)
# Variables reach these scripts by this file only.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_BINARY_DIR}/cpack_project.cmake)
file(WRITE ${CPACK_PROJECT_CONFIG_FILE} "set(ORVIK_DEBIAN_FILES \"${ORVIK_DEBIAN_FILES}\")\n")

include(CPack)

# Builds no more than the package holds.
set(packaged)
foreach(target orvik orvik-batch orvik-book orvik_icons)
    if(TARGET ${target})
        list(APPEND packaged ${target})
    endif()
endforeach()
add_custom_target(deb
    COMMAND ${CMAKE_CPACK_COMMAND} -G DEB --config ${PROJECT_BINARY_DIR}/CPackConfig.cmake
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    COMMENT "Making the Debian package"
    VERBATIM)
add_dependencies(deb ${packaged})
