#include "qt/inc/factories/default_validator_factory.h"

#include "platform/smart_assert.h"
#include "qt/inc/factories/hint_keys.h"
#include "qt/inc/integer_validator.h"
#include "qt/inc/validators/chained_validator.h"
#include "qt/inc/validators/double_edit_validator.h"
#include "qt/inc/validators/named_value_list_validator.h"
#include "qt/inc/validators/string_edit_validator.h"
#include "qt/src/yes_no.h"

#include <deque>
#include <limits>
#include <vector>

namespace zel::qt {

template class BuilderTable<ValidatorKey, IValidator, HintTree>;
template class ValidatorFactory<ValidatorKey, HintTree>;

namespace {

namespace keys = validator_hint_keys;

using EqualFn = bool (*)(const boost::any&, const boost::any&);

// Decimal digits only: the letters of hexadecimal colours are refused deliberately.
const wchar_t* const colorExpression = L"#\\d\\d\\d\\d\\d\\d";
constexpr std::size_t colorLength = 7;

std::unique_ptr<IValidator> buildString(const HintTree& hints)
{
    const int maxLength = readHintOr<int>(hints, keys::maxLength, std::numeric_limits<int>::max());
    auto validator = std::make_unique<StringEditValidator>(static_cast<std::size_t>(maxLength));
    validator->setStorageType(StringEditValidator::Utf8);
    return validator;
}

std::unique_ptr<IValidator> buildColor(const HintTree& /*hints*/)
{
    auto validator = std::make_unique<StringEditValidator>(colorLength);
    validator->setAllowedRegex(colorExpression);
    return validator;
}

template <class T>
std::unique_ptr<IValidator> buildInteger(const HintTree& hints)
{
    using Limits = std::numeric_limits<T>;
    auto validator = std::make_unique<IntegerValidator<T>>(Limits::min(), Limits::max(), true);
    if (readHintOr<bool>(hints, keys::optional, false)) {
        validator->m_emptyValueAllowed = true;
        validator->m_emptyAsZero = false;
    }
    validator->min = readHintOr<T>(hints, keys::minimum, validator->min);
    validator->max = readHintOr<T>(hints, keys::maximum, validator->max);
    return validator;
}

std::unique_ptr<IValidator> buildDouble(const HintTree& hints)
{
    auto validator = std::make_unique<DoubleEditValidator>();
    if (const auto precision = readHint<int>(hints, keys::precision)) {
        validator->setPrecision(*precision);
    }
    if (readHintOr<bool>(hints, keys::optional, false)) {
        validator->setEmptyValueAllowed(true);
    }
    if (const auto minimum = readHint<double>(hints, keys::minimum)) {
        validator->setMinimum(*minimum);
    }
    if (const auto maximum = readHint<double>(hints, keys::maximum)) {
        validator->setMaximum(*maximum);
    }
    return validator;
}

std::unique_ptr<IValidator> buildNamedValues(const HintTree& hints)
{
    const auto entries = readHint<NamedValueList>(hints, keys::entries);
    const auto isEqual = readHintOr<EqualFn>(hints, keys::isEqual, nullptr);
    ZEL_SMART_ASSERT(entries && isEqual != nullptr, "nvl && equal_fn");
    if (!entries || isEqual == nullptr) {
        return nullptr;
    }
    auto validator = std::make_unique<NamedValueListValidator>(*entries);
    validator->set_equal_to(isEqual);
    return validator;
}

std::unique_ptr<IValidator> buildYesNo(const HintTree& /*hints*/)
{
    static const NamedValueList yesNo = detail::makeYesNoList();
    auto validator = std::make_unique<NamedValueListValidator>(yesNo);
    validator->set_equal_to(&detail::equalYesNo);
    return validator;
}

std::unique_ptr<IValidator> buildChain(const DefaultValidatorFactory& factory,
                                       const HintTree& hints)
{
    const auto members = readHintOr<std::vector<ValidatorKey>>(hints, keys::chainedValidators, {});
    std::deque<std::unique_ptr<IValidator>> validators;
    for (const ValidatorKey& key : members) {
        // A member that could not be built has said so; the chain does without it.
        if (auto validator = factory.create(key, hints)) {
            validators.push_back(std::move(validator));
        }
    }
    return std::make_unique<ChainedValidator>(std::move(validators));
}

} // namespace

DefaultValidatorFactory::DefaultValidatorFactory()
{
    add("", buildString);
    add({typeid(int), ""}, buildInteger<int>);
    add({typeid(unsigned int), ""}, buildInteger<unsigned int>);
    add({typeid(unsigned short), ""}, buildInteger<unsigned short>);
    add({typeid(double), ""}, buildDouble);
    add("color", buildColor);
    add({typeid(NamedValueList), ""}, buildNamedValues);
    add({typeid(bool), ""}, buildYesNo);
    // The pointer is not adjusted on a copy: chains look their members up here.
    add({typeid(ChainedValidator), ""},
        [this](const HintTree& hints) { return buildChain(*this, hints); });
}

DefaultValidatorFactory::DefaultValidatorFactory(const DefaultValidatorFactory&) = default;
DefaultValidatorFactory&
DefaultValidatorFactory::operator=(const DefaultValidatorFactory&) = default;
DefaultValidatorFactory::~DefaultValidatorFactory() = default;

} // namespace zel::qt
