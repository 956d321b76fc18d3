# Adds to the package's tree what Debian asks of a package's papers: copyright, and changelog and manual
# page compressed, without times and names so that a package built twice is the same.
set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share")
file(COPY "${CMAKE_CURRENT_LIST_DIR}/copyright" "${CMAKE_CURRENT_LIST_DIR}/changelog"
     DESTINATION "${root}/doc/corvane")
execute_process(COMMAND gzip -9nf "${root}/doc/corvane/changelog" "${root}/man/man1/corvane.1"
                        COMMAND_ERROR_IS_FATAL ANY)
