# Run by CPack on the staged files: programs without symbols, Debian's names for licence and changes,
# everything long compressed.
set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
set(doc ${usr}/share/doc/orvik)

file(GLOB programs ${usr}/bin/*)
execute_process(
    COMMAND strip --remove-section=.comment --remove-section=.note ${programs}
    COMMAND_ERROR_IS_FATAL ANY)

file(REMOVE ${doc}/LICENSE)
file(COPY_FILE ${ORVIK_DEBIAN_FILES}/copyright ${doc}/copyright)
file(COPY_FILE ${ORVIK_DEBIAN_FILES}/changelog ${doc}/changelog)
file(CHMOD ${doc}/copyright ${doc}/changelog
     FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(GLOB long ${doc}/changelog ${usr}/share/man/man1/*.1)
execute_process(COMMAND gzip --best --no-name ${long} COMMAND_ERROR_IS_FATAL ANY)

# Folders are made with the umask of whoever builds.
file(CHMOD_RECURSE ${usr}
     DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
                           GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
