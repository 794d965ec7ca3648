# Repacks cpack's packages so that they satisfy Debian's policy and its checker. They have no maintainer scripts, because
# the linker searches for none of the libraries. The package of debug symbols gets its files' checksums and its documents,
# and its files are not executable. Every file has the date of the release, so that two builds of one source are identical.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(root ${CPACK_TEMPORARY_DIRECTORY}/repacked)
    file(REMOVE_RECURSE ${root})
    execute_process(COMMAND dpkg-deb -R ${package} ${root} COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE ${root}/DEBIAN/postinst ${root}/DEBIAN/postrm ${root}/DEBIAN/triggers ${root}/DEBIAN/shlibs)
    if(package MATCHES "-dbgsym_")
        file(MAKE_DIRECTORY ${root}/usr/share/doc)
        file(CREATE_LINK chromabridge ${root}/usr/share/doc/chromabridge-dbgsym SYMBOLIC)
    endif()
    execute_process(COMMAND sh -ec [[
        find . -type d -exec chmod 755 {} +
        find . -name '*.debug' -exec chmod 644 {} +
        find usr -type f | LC_ALL=C sort | xargs -d '\n' md5sum >DEBIAN/md5sums
        chmod 644 DEBIAN/*
        find . -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
        dpkg-deb --root-owner-group -Zxz -b . "$1" >/dev/null]] sh ${package}
        WORKING_DIRECTORY ${root} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
