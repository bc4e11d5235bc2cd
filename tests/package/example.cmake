# Runs the host application installed below `prefix`, in English and in German, on an installed model.
set(data ${prefix}/share/zel/frame_editor)
set(model ${data}/models/portal_frame.json)
set(picture ${CMAKE_CURRENT_BINARY_DIR}/package_example.png)

# Runs it in a language; `out` gets what it prints.
function(run language)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env --unset=LC_ALL LANG=${language}.UTF-8 LANGUAGE=${language}
                ${prefix}/bin/zel-frame-editor ${model} ${ARGN}
        OUTPUT_VARIABLE out COMMAND_ERROR_IS_FATAL ANY)
    set(out "${out}" PARENT_SCOPE)
endfunction()

macro(expect text)
    string(FIND "${out}" "${text}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "no \"${text}\" in:\n${out}")
    endif()
endmacro()

run(en --select R1 --set line_load=2.5)
expect("R1.line_load: 6.75 kN/m (6.75) -> 2.50 kN/m (2.5)")
run(en --form ${data}/forms/loads.json --select R1 --set "load_direction=normal")
expect("R1.load_direction: Vertical, per plan length -> Normal to the member")
file(REMOVE ${picture})
run(de --select R1 --screenshot ${picture})
expect("gespeichert: ${picture}")
if(NOT EXISTS ${picture})
    message(FATAL_ERROR "there is no ${picture}")
endif()
run(de --help)
expect("Aufruf: frame_editor")
