#pragma once

#include "qt/inc/factories/builder_table.h"
#include "qt/inc/factories/hint_tree.h"
#include "qt/inc/validators/i_validator.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace zel::qt {

/// Makes a validator out of a tree of hints.
using ValidatorBuilder = std::function<std::unique_ptr<IValidator>(const HintTree&)>;

/// Makes validators by key out of trees of hints.
template <class Key, class Tree>
class ValidatorFactory : public BuilderTable<Key, IValidator, Tree>
{
    using Table = BuilderTable<Key, IValidator, Tree>;

public:
    using typename Table::Builder;

    ValidatorFactory() = default;
    ValidatorFactory(const ValidatorFactory&) = default;
    ValidatorFactory& operator=(const ValidatorFactory&) = default;
    ~ValidatorFactory() = default;

    using Table::add;

    /// Adds the builder of a validator whose value is a std::string.
    void add(const std::string& kind, Builder builder)
    {
        add(Key(typeid(std::string), kind), std::move(builder));
    }
};

// The tree of hints is a type of hidden visibility, so these are marked one by one.
extern template class ZEL_QT_EXPORT BuilderTable<ValidatorKey, IValidator, HintTree>;
extern template class ZEL_QT_EXPORT ValidatorFactory<ValidatorKey, HintTree>;

} // namespace zel::qt
