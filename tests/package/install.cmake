# Installs the build tree `build` into a fresh folder `prefix`: a header that is no longer installed
# must not linger there.
file(REMOVE_RECURSE ${prefix})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix}
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
