# Installs the build tree `build` into a fresh folder `prefix`: a header that is no longer installed
# must not linger there, nor what an outside project remembers of an earlier installation.
file(REMOVE_RECURSE ${prefix})
cmake_path(GET prefix PARENT_PATH outside)
file(GLOB caches ${outside}/*/CMakeCache.txt)
if(caches)
    file(REMOVE ${caches})
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix}
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
