#include "qt/inc/hint_json.h"
#include "qt/inc/validators/chained_validator.h"

#include <stdexcept>

namespace zel::qt {
namespace {

template <class T>
void add(std::map<QString, T>& things, const QString& name, const T& thing)
{
    if (!things.emplace(name, thing).second) {
        throw std::logic_error("duplicate key");
    }
}

template <class Function>
void addFunction(std::map<QString, Function>& functions, const QString& name,
                 const Function& function)
{
    if (!function) {
        throw std::invalid_argument("empty function");
    }
    add(functions, name, function);
}

template <class T>
const T* find(const std::map<QString, T>& things, const QString& name)
{
    const auto found = things.find(name);
    return found == things.end() ? nullptr : &found->second;
}

} // namespace

HintRegistry::HintRegistry()
    : m_types({
          {QStringLiteral("string"), typeid(std::string)},
          {QStringLiteral("int"), typeid(int)},
          {QStringLiteral("unsigned int"), typeid(unsigned int)},
          {QStringLiteral("unsigned short"), typeid(unsigned short)},
          {QStringLiteral("double"), typeid(double)},
          {QStringLiteral("bool"), typeid(bool)},
          {QStringLiteral("named_value_list"), typeid(NamedValueList)},
          {QStringLiteral("chained"), typeid(ChainedValidator)},
      })
{}

void HintRegistry::addType(const QString& name, std::type_index type)
{
    add(m_types, name, type);
}

void HintRegistry::addComparison(const QString& name, Comparison comparison)
{
    addFunction(m_comparisons, name, comparison);
}

void HintRegistry::addValues(const QString& name, const NamedValueList& values)
{
    add(m_values, name, values);
}

void HintRegistry::addPixmaps(const QString& name, const PixmapPtrList& pixmaps)
{
    add(m_pixmaps, name, pixmaps);
}

void HintRegistry::addDefaultFunction(const QString& name, const DefaultFunction& function)
{
    addFunction(m_defaultFunctions, name, function);
}

void HintRegistry::addResetFunction(const QString& name, const ResetFunction& function)
{
    addFunction(m_resetFunctions, name, function);
}

void HintRegistry::addCallback(const QString& name, const Callback& callback)
{
    addFunction(m_callbacks, name, callback);
}

const std::type_index* HintRegistry::findType(const QString& name) const
{
    return find(m_types, name);
}

const HintRegistry::Comparison* HintRegistry::findComparison(const QString& name) const
{
    return find(m_comparisons, name);
}

const NamedValueList* HintRegistry::findValues(const QString& name) const
{
    return find(m_values, name);
}

const PixmapPtrList* HintRegistry::findPixmaps(const QString& name) const
{
    return find(m_pixmaps, name);
}

const HintRegistry::DefaultFunction* HintRegistry::findDefaultFunction(const QString& name) const
{
    return find(m_defaultFunctions, name);
}

const HintRegistry::ResetFunction* HintRegistry::findResetFunction(const QString& name) const
{
    return find(m_resetFunctions, name);
}

const HintRegistry::Callback* HintRegistry::findCallback(const QString& name) const
{
    return find(m_callbacks, name);
}

HintJsonError::HintJsonError(const QString& path, const QString& problem)
    : Exception((path + QStringLiteral(": ") + problem).toStdString())
    , m_path(path)
{}

HintJsonError::~HintJsonError() = default;

const QString& HintJsonError::path() const
{
    return m_path;
}

} // namespace zel::qt
