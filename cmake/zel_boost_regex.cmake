# zel_boost_regex: what the code that uses Boost.Regex links, on every Boost from 1.74 on.
# Before 1.76 that is a compiled library; since then it is headers alone.

add_library(zel_boost_regex INTERFACE)
target_link_libraries(zel_boost_regex INTERFACE Boost::headers)
if(Boost_VERSION VERSION_LESS 1.76)
    find_package(Boost ${Boost_VERSION} QUIET OPTIONAL_COMPONENTS regex)
    if(TARGET Boost::regex)
        target_link_libraries(zel_boost_regex INTERFACE Boost::regex)
    else()
        # A machine with the runtime library alone has no unversioned name for it.
        find_library(zel_boost_regex_library REQUIRED
            NAMES boost_regex libboost_regex.so.${Boost_VERSION})
        target_link_libraries(zel_boost_regex INTERFACE ${zel_boost_regex_library})
    endif()
endif()
