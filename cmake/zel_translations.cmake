# Translations: a ts file per language becomes a qm file inside the program, in the Qt resource
# folder ":/zel/translations".
#
# zel_add_translations(TARGET zel_qt FOLDER qt/translations NAME zel_qt2_dll LANGUAGES de fr)
#
# The ts files are FOLDER/NAME_LANGUAGE.ts. The target zel_update_translations brings all of them up
# to date with the tr() texts of SOURCES (folders and files, from the root of the project).

find_package(Qt5 ${zel_qt5_version} REQUIRED COMPONENTS LinguistTools)
add_custom_target(zel_update_translations)

function(zel_add_translations)
    cmake_parse_arguments(arg "" "TARGET;FOLDER;NAME" "LANGUAGES;SOURCES" ${ARGN})
    set(ts_files "")
    set(qm_files "")
    set(entries "")
    set(build_dir ${CMAKE_CURRENT_BINARY_DIR}/translations)
    file(MAKE_DIRECTORY ${build_dir})
    foreach(language IN LISTS arg_LANGUAGES)
        set(ts ${CMAKE_CURRENT_SOURCE_DIR}/${arg_FOLDER}/${arg_NAME}_${language}.ts)
        set(qm ${build_dir}/${arg_NAME}_${language}.qm)
        add_custom_command(OUTPUT ${qm}
            COMMAND Qt5::lrelease -silent ${ts} -qm ${qm}
            DEPENDS ${ts} VERBATIM)
        list(APPEND ts_files ${ts})
        list(APPEND qm_files ${qm})
        string(APPEND entries "<file>${arg_NAME}_${language}.qm</file>")
    endforeach()

    # rcc looks for the files beside the list.
    set(qrc ${build_dir}/${arg_NAME}_translations.qrc)
    file(CONFIGURE OUTPUT ${qrc} @ONLY CONTENT
        "<RCC><qresource prefix=\"/zel/translations\">@entries@</qresource></RCC>\n")
    set(resource ${build_dir}/${arg_NAME}_translations.cpp)
    add_custom_command(OUTPUT ${resource}
        COMMAND Qt5::rcc --name ${arg_NAME}_translations --output ${resource} ${qrc}
        DEPENDS ${qrc} ${qm_files} VERBATIM)
    target_sources(${arg_TARGET} PRIVATE ${resource})
    set_source_files_properties(${resource} PROPERTIES SKIP_AUTOGEN ON)

    add_custom_target(${arg_TARGET}_update_translations
        COMMAND Qt5::lupdate -silent -no-obsolete -locations none -I . ${arg_SOURCES} -ts ${ts_files}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM)
    add_dependencies(zel_update_translations ${arg_TARGET}_update_translations)
    set_target_properties(${arg_TARGET} PROPERTIES
        ZEL_TS_FILES "${ts_files}" ZEL_QM_FILES "${qm_files}")
endfunction()
