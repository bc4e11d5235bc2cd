#pragma once

#include <boost/functional/hash.hpp>

#include <functional>
#include <memory>
#include <stdexcept>
#include <unordered_map>
#include <utility>

namespace zel::qt {

/// Hashes the keys of a BuilderTable: what std::hash knows, and pairs of such.
struct BuilderKeyHash
{
    template <class Key>
    std::size_t operator()(const Key& key) const
    {
        return std::hash<Key>()(key);
    }
    template <class First, class Second>
    std::size_t operator()(const std::pair<First, Second>& key) const
    {
        std::size_t seed = 0;
        boost::hash_combine(seed, (*this)(key.first));
        boost::hash_combine(seed, (*this)(key.second));
        return seed;
    }
};

/// A table of functions that build a Product out of a Tree, by key.
///
/// It is copied but never moved from: a builder may hold a pointer to the table that it was added
/// to, which therefore has to keep what it has.
template <class Key, class Product, class Tree>
class BuilderTable
{
public:
    using Builder = std::function<std::unique_ptr<Product>(const Tree&)>;

    BuilderTable() = default;
    BuilderTable(const BuilderTable&) = default;
    BuilderTable& operator=(const BuilderTable&) = default;

    /// Adds a builder. A key that is there already throws std::logic_error, "duplicate key", and
    /// keeps its builder.
    void add(const Key& key, Builder builder)
    {
        if (!m_builders.emplace(key, std::move(builder)).second) {
            throw std::logic_error("duplicate key");
        }
    }

    /// What the builder of `key` makes of `tree`; the caller owns it alone. Throws
    /// std::out_of_range for a key that is not there, std::bad_function_call for an empty builder,
    /// and what the builder throws.
    std::unique_ptr<Product> create(const Key& key, const Tree& tree) const
    {
        return m_builders.at(key)(tree);
    }

    bool exists(const Key& key) const
    {
        return m_builders.find(key) != m_builders.end();
    }

protected:
    ~BuilderTable() = default;

private:
    std::unordered_map<Key, Builder, BuilderKeyHash> m_builders;
};

} // namespace zel::qt
