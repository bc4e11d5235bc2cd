#pragma once

#include <boost/any.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <map>
#include <string>

namespace zel {

/// The store that controls save their state to and load it from. A copy shares the map.
struct KeyValueStorage
{
    boost::shared_ptr<std::map<std::string, boost::any>> values =
        boost::make_shared<std::map<std::string, boost::any>>();
};

} // namespace zel
