# Debian packages, made by cpack; see scripts/package. Its build tree has the prefix /usr, so that the
# libraries go where Debian has those of the machine.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zel)
set(CPACK_PACKAGE_VENDOR "the zel authors")
set(CPACK_PACKAGE_CONTACT "the zel authors <zel@zel.example.org>")
# Each package has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# The example needs the libraries of this very build, which no package gives yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(zel_same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# What Debian wants compressed.
find_program(zel_gzip gzip REQUIRED)
set(zel_compressed "")
foreach(file IN ITEMS packaging/debian/changelog packaging/zel-frame-editor.1)
    cmake_path(GET file FILENAME name)
    set(name ${PROJECT_BINARY_DIR}/${name}.gz)
    add_custom_command(OUTPUT ${name}
        COMMAND ${zel_gzip} -9nc ${PROJECT_SOURCE_DIR}/${file} > ${name}
        DEPENDS ${file})
    list(APPEND zel_compressed ${name})
endforeach()
add_custom_target(zel_compressed ALL DEPENDS ${zel_compressed})

# Sets the name, the section and the summary of the package made of a component.
macro(zel_package component package section summary)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    # The first line is the summary, the rest the description.
    string(CONCAT CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n" ${ARGN})
    # Each package brings its licence and the history of the packaging, which an installation without
    # packages has no use for.
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz RENAME changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component} EXCLUDE_FROM_ALL)
    install(FILES packaging/debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

zel_package(runtime libzel${PROJECT_VERSION_MAJOR} libs
    "input widgets and units for engineering applications"
    "Line edits, choice controls and editors built from data for the property\n"
    "panels of engineering applications on Qt 5, which edit one property of\n"
    "several objects at once, and a units library that parses and formats\n"
    "physical quantities and needs no Qt.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

zel_package(development libzel-dev libdevel
    "input widgets and units for engineering applications - development"
    "Headers, the CMake package and pkg-config files for building programs\n"
    "with zel.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libzel${PROJECT_VERSION_MAJOR} ${zel_same_version}, libboost-dev (>= ${zel_boost_version})")
if(ZEL_BUILD_QT)
    string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
           ", libboost-regex-dev (>= ${zel_boost_version}), qtbase5-dev (>= ${zel_qt5_version})")
endif()

if(TARGET frame_editor)
    list(APPEND CPACK_COMPONENTS_ALL example)
    zel_package(example zel-frame-editor science
        "editor of plane frames, an example application of zel"
        "Shows a plane frame and edits the properties of its members, one or many\n"
        "at a time, with the input widgets of zel.")
    install(FILES ${PROJECT_BINARY_DIR}/zel-frame-editor.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT example)
    # The texts of Qt's own dialogs, in the languages that the program speaks.
    set(CPACK_DEBIAN_EXAMPLE_PACKAGE_RECOMMENDS qttranslations5-l10n)
    set(CPACK_DEBIAN_EXAMPLE_PACKAGE_DEPENDS "libzel${PROJECT_VERSION_MAJOR} ${zel_same_version}")
endif()

include(CPack)
