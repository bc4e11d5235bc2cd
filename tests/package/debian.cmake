# Makes the Debian packages after `config` in `folder` and lets lintian look at them: an error fails.
file(REMOVE_RECURSE ${folder})
execute_process(COMMAND ${cpack} --config ${config} -B ${folder}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB packages ${folder}/*.deb)
list(LENGTH packages count)
if(NOT count EQUAL 3)
    message(FATAL_ERROR "three packages are wanted, not: ${packages}")
endif()
# Packages that nobody uploads need not close an entry of the distribution's bug tracker.
execute_process(COMMAND ${lintian} --allow-root --fail-on error
    --suppress-tags initial-upload-closes-no-bugs ${packages}
    COMMAND_ERROR_IS_FATAL ANY)
