# SPDX-License-Identifier: Apache-2.0
# Runs before packages are put together, over the folders of what goes into them: Debian wants manual pages and
# changelogs compressed.
file(GLOB_RECURSE files ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*)
file(GLOB changelogs ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog)
foreach(file ${files} ${changelogs})
    execute_process(COMMAND gzip --best --no-name ${file} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
