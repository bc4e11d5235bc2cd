# What all targets of the project share: language level, warnings, sanitizers, symbol visibility.

file(RELATIVE_PATH zel_root_from_build ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR})
string(REGEX REPLACE "/$" "" zel_root_from_build "${zel_root_from_build}")
add_library(zel_options INTERFACE)
target_compile_features(zel_options INTERFACE cxx_std_17)
target_compile_options(zel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # __FILE__ is the path from the root, in assertion reports too.
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=
    # A compiler cache with a base directory hands the compiler relative paths.
    -fmacro-prefix-map=${zel_root_from_build}/=)
if(ZEL_WARNINGS_AS_ERRORS)
    target_compile_options(zel_options INTERFACE -Werror)
endif()
if(ZEL_SANITIZE)
    target_compile_options(zel_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
        # With the instrumentation in between, GCC warns of empty optionals that nobody reads.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(zel_options INTERFACE -fsanitize=address,undefined)
endif()
if(ZEL_BUILD_FUZZERS)
    target_compile_options(zel_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Debian's compilers know C++17 without further flags; extensions stay off.
set(CMAKE_CXX_EXTENSIONS OFF)

# Sets what both libraries have in common. COMPONENT is the name in the exported package,
# BUILD_MACRO is defined while the library itself is compiled.
function(zel_library target component build_macro)
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${component}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_compile_definitions(${target} PRIVATE ${build_macro})
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zel>)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:zel_options>)
endfunction()
