# Run by CPack on the finished package: the same sources make the same package, whoever builds it, when
# and where. CPack takes dates from the clock, modes of its own files from the umask, and the installed
# size from what folders take on this file system; so dpkg-deb packs all again.
set(content ${CPACK_TOPLEVEL_DIRECTORY}/content)
file(REMOVE_RECURSE ${content})
execute_process(
    COMMAND dpkg-deb --raw-extract ${CPACK_PACKAGE_FILES} ${content}
    COMMAND_ERROR_IS_FATAL ANY)

# In KiB, as Debian counts it: each file rounded up, and one for each folder.
file(GLOB_RECURSE installed LIST_DIRECTORIES TRUE ${content}/usr/*)
set(size 1) # of usr itself
foreach(one IN LISTS installed)
    set(bytes 1)
    if(NOT IS_DIRECTORY ${one})
        file(SIZE ${one} bytes)
    endif()
    math(EXPR size "${size} + (${bytes} + 1023) / 1024")
endforeach()
file(READ ${content}/DEBIAN/control control)
string(REGEX REPLACE "Installed-Size: [0-9]+" "Installed-Size: ${size}" control "${control}")
file(WRITE ${content}/DEBIAN/control "${control}")

# The date of the last release.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(
        COMMAND dpkg-parsechangelog -l ${ORVIK_DEBIAN_FILES}/changelog -S Timestamp
        OUTPUT_VARIABLE released OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(ENV{SOURCE_DATE_EPOCH} ${released})
endif()
execute_process(COMMAND chmod 755 ${content} ${content}/DEBIAN COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND find ${content} -exec touch --date=@$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND dpkg-deb --root-owner-group -Zgzip --build ${content} ${CPACK_PACKAGE_FILES}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
