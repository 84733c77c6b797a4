# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# CPack runs this on the files of the packages before it packs them: it adds what Debian wants of
# every package, and compresses what Debian wants compressed.
set(programs ${CPACK_TEMPORARY_DIRECTORY}/programs/usr/share)
set(documents ${programs}/doc/convert2velarix
    ${CPACK_TEMPORARY_DIRECTORY}/development/usr/share/doc/libconvert2velarix-dev)

# add(SOURCE NAME): a document of both packages.
function(add source name)
    foreach(folder IN LISTS documents)
        execute_process(
            COMMAND install -D -m 644 ${CMAKE_CURRENT_LIST_DIR}/${source} ${folder}/${name}
            COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
endfunction()

add(copyright copyright)
add(../CHANGELOG.md changelog)
add(changelog.Debian changelog.Debian)

list(TRANSFORM documents APPEND /changelog* OUTPUT_VARIABLE changelogs)
file(GLOB files ${programs}/man/man1/*.1 ${changelogs})
execute_process(COMMAND gzip -9n ${files} COMMAND_ERROR_IS_FATAL ANY)
