# zel_boost_regex: what is linked for Boost.Regex, on every Boost from 1.74 on. Before 1.76 that is
# a compiled library, which hosts need too: a validator throws its exceptions.

set(zel_boost_regex "")
if(Boost_VERSION VERSION_LESS 1.76)
    find_package(Boost ${zel_boost_version} QUIET OPTIONAL_COMPONENTS regex)
    if(TARGET Boost::regex)
        set(zel_boost_regex Boost::regex)
    else()
        # A machine with the runtime library alone has no unversioned name for it.
        find_library(zel_boost_regex_library REQUIRED
            NAMES boost_regex libboost_regex.so.${Boost_VERSION})
        set(zel_boost_regex ${zel_boost_regex_library})
    endif()
endif()
