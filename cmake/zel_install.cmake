# What `cmake --install` puts down, and the package that find_package(zel) finds there.
#
# Three parts, also the names of the Debian packages that cpack makes of them: "runtime" (what a
# program needs to run), "development" (what it takes to build one) and "example".

include(CMakePackageConfigHelpers)

set(zel_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zel)
set(zel_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/zel)

# The libraries and programs of an installation find each other wherever it stands. Below /usr, the
# prefix of packages, the loader knows where to look and a path of one's own is not wanted; where an
# installation goes is known only when it is made.
file(RELATIVE_PATH zel_bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(zel_library_rpath "\$ORIGIN")
set(zel_program_rpath "\$ORIGIN/${zel_bin_to_lib}")
function(zel_install_without_rpath component file)
    install(CODE "if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
            set(zel_file \"${file}\")
            cmake_path(ABSOLUTE_PATH zel_file BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
            file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}\${zel_file}\")
        endif()"
        COMPONENT ${component})
endfunction()

# Installs the library TARGET of the package's component NAME, and its headers, which keep their
# paths from the root. Each component has a file of exported targets of its own, so that whoever
# asks for the units alone needs no Qt.
function(zel_install_library target name)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "${zel_library_rpath}")
    install(TARGETS ${target} EXPORT zel-${name}-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
    zel_install_without_rpath(runtime ${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:${target}>)
    install(EXPORT zel-${name}-targets
        FILE zel-${name}-targets.cmake NAMESPACE zel::
        DESTINATION ${zel_cmake_dir} COMPONENT development)
    foreach(header IN LISTS ARGN)
        get_filename_component(folder ${header} DIRECTORY)
        install(FILES ${PROJECT_SOURCE_DIR}/${header}
            DESTINATION ${zel_include_dir}/${folder} COMPONENT development)
    endforeach()

    # The paths in the pkg-config file start from where it stands, so a prefix can be moved.
    file(RELATIVE_PATH zel_pc_to_prefix
         ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" zel_pc_to_prefix "${zel_pc_to_prefix}")
    # A folder that is given from the root stays where it is.
    set(zel_pc_libdir ${CMAKE_INSTALL_LIBDIR})
    set(zel_pc_includedir ${zel_include_dir})
    foreach(dir IN ITEMS zel_pc_libdir zel_pc_includedir)
        if(NOT IS_ABSOLUTE "${${dir}}")
            string(PREPEND ${dir} "\${prefix}/")
        endif()
    endforeach()
    configure_file(cmake/zel-${name}.pc.in zel-${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/zel-${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

file(GLOB_RECURSE zel_units_public CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
     base/*.h platform/export.h platform/smart_assert.h units/inc/*.h)
zel_install_library(zel_units units ${zel_units_public})
set(zel_public_headers ${zel_units_public})
if(ZEL_BUILD_QT)
    file(GLOB_RECURSE zel_qt_public CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
         platform/environment.h platform/widgets.h qt/inc/*.h)
    zel_install_library(zel_qt qt ${zel_qt_public})
    list(APPEND zel_public_headers ${zel_qt_public})
    # The library carries its translations in itself. The files are for a host that wants to load
    # one by hand, and for whoever translates zel into one more language.
    get_target_property(zel_qt_qm_files zel_qt ZEL_QM_FILES)
    get_target_property(zel_qt_ts_files zel_qt ZEL_TS_FILES)
    install(FILES ${zel_qt_qm_files} ${zel_qt_ts_files}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zel/translations COMPONENT development)
endif()

configure_package_config_file(cmake/zel-config.cmake.in zel-config.cmake
    INSTALL_DESTINATION ${zel_cmake_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(zel-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zel-config.cmake ${PROJECT_BINARY_DIR}/zel-config-version.cmake
    DESTINATION ${zel_cmake_dir} COMPONENT development)

# The example host application, under a name that tells where it belongs.
if(TARGET frame_editor)
    set_target_properties(frame_editor PROPERTIES INSTALL_RPATH "${zel_program_rpath}")
    install(TARGETS frame_editor RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT example)
    zel_install_without_rpath(example ${CMAKE_INSTALL_BINDIR}/frame_editor)
    install(CODE "set(zel_bin \"${CMAKE_INSTALL_BINDIR}\")
        cmake_path(ABSOLUTE_PATH zel_bin BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
        set(zel_bin \"\$ENV{DESTDIR}\${zel_bin}\")
        file(RENAME \"\${zel_bin}/frame_editor\" \"\${zel_bin}/zel-frame-editor\")"
        COMPONENT example)
    install(DIRECTORY examples/frame_editor/models examples/frame_editor/forms
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zel/frame_editor COMPONENT example)
    install(FILES packaging/zel-frame-editor.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT example)
endif()

if(PROJECT_IS_TOP_LEVEL)
    include(cmake/zel_packages.cmake)
endif()
