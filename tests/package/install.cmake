# Installs the build tree `build` into a fresh folder `prefix`: a header that is no longer installed
# must not linger there, nor what an outside project remembers of an earlier installation. What is
# installed knows neither of the build tree nor of the folder that it stands in.
file(REMOVE_RECURSE ${prefix})
cmake_path(GET prefix PARENT_PATH outside)
file(GLOB caches ${outside}/*/CMakeCache.txt)
if(caches)
    file(REMOVE ${caches})
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix}
    COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)

file(GLOB_RECURSE lists ${prefix}/*.cmake ${prefix}/*.pc)
foreach(list IN LISTS lists)
    file(READ ${list} text)
    string(FIND "${text}" "${build}" place)
    if(NOT place EQUAL -1)
        message(FATAL_ERROR "${list} names ${build}")
    endif()
endforeach()
if(NOT lists OR EXISTS ${prefix}/share/doc)
    message(FATAL_ERROR "installed wrongly: ${lists}, ${prefix}/share/doc")
endif()
