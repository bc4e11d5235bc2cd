#pragma once

#include <boost/any.hpp>
#include <boost/optional.hpp>
#include <boost/property_tree/ptree.hpp>

#include <string>
#include <typeindex>
#include <utility>

namespace boost::property_tree {

/// Takes a value of exactly the type T out of a tree whose data are boost::any. Nothing is parsed
/// or converted: data of another type throw boost::bad_any_cast, so the answer is never empty.
template <class T>
struct xlate_any_to_T
{
    using internal_type = boost::any;
    using external_type = T;

    boost::optional<T> get_value(const boost::any& data) const
    {
        return boost::any_cast<T>(data);
    }
    boost::optional<boost::any> put_value(const T& value) const
    {
        return boost::any(value);
    }
};

} // namespace boost::property_tree

namespace zel::qt {

/// A description of an editor or a validator as data. A path such as "validator.kind" is the child
/// "kind" of the child "validator". Each node holds a value of exactly the type that its reader
/// expects: an `int` where a `double` is expected is an error, not a number.
using HintTree = boost::property_tree::basic_ptree<std::string, boost::any>;

/// Names a validator: the type of the value that it produces, and a kind that tells apart two
/// validators of one type. The empty kind is the plain validator of a type.
using ValidatorKey = std::pair<std::type_index, std::string>;

/// The hint at `path`, or none if the tree has no such node.
/// Throws boost::bad_any_cast if the node holds another type than T, an empty one included.
template <class T>
boost::optional<T> readHint(const HintTree& hints, const std::string& path)
{
    if (const auto node = hints.get_child_optional(path)) {
        return node->template get_value<T>(boost::property_tree::xlate_any_to_T<T>());
    }
    return boost::none;
}

/// The hint at `path`, or `defaultValue` if the tree has no such node.
/// Throws boost::bad_any_cast if the node holds another type than T.
template <class T>
T readHintOr(const HintTree& hints, const std::string& path, T defaultValue)
{
    boost::optional<T> hint = readHint<T>(hints, path);
    return hint ? std::move(*hint) : std::move(defaultValue);
}

/// The hint at `path`. Throws boost::property_tree::ptree_bad_path, "No such node" with the path
/// in brackets, if the tree has no such node, and boost::bad_any_cast if it holds another type.
template <class T>
T readNeededHint(const HintTree& hints, const std::string& path)
{
    return hints.get_child(path).template get_value<T>(boost::property_tree::xlate_any_to_T<T>());
}

} // namespace zel::qt
