#pragma once

#include "qt/inc/factories/validator_factory.h"

namespace zel::qt {

/// The factory of the nine validators that the library builds from hints. A host may add more.
///
/// | Value type       | Kind    | Builds                     | Hints                            |
/// |------------------|---------|----------------------------|----------------------------------|
/// | std::string      | ""      | a text stored as UTF-8     | "max_length"                     |
/// | int              | ""      | IntegerValidator           | "optional", "minimum", "maximum" |
/// | unsigned int     | ""      | IntegerValidator           | the same                         |
/// | unsigned short   | ""      | IntegerValidator           | the same                         |
/// | double           | ""      | DoubleEditValidator        | "precision" and the same         |
/// | std::string      | "color" | "#" and six decimal digits | none                             |
/// | NamedValueList   | ""      | NamedValueListValidator    | "entries", "is_equal", needed    |
/// | bool             | ""      | names yes and no           | none                             |
/// | ChainedValidator | ""      | ChainedValidator           | "chained_validators"             |
///
/// The bounds hold the value type itself; "optional" is a bool, "precision" and "max_length" are
/// int. A hint of another type throws boost::bad_any_cast. "entries" (a NamedValueList) and
/// "is_equal" (a bool (*)(const boost::any&, const boost::any&)) report the assertion
/// "nvl && equal_fn" if one is missing, and the result is null.
///
/// "chained_validators" is a std::vector<ValidatorKey>. Its members are built by the factory whose
/// constructor ran, and all of the same tree: one "optional" reaches every member that reads it. A
/// chain must not name itself.
///
/// A copied or moved factory goes on asking the factory that was constructed first for the members
/// of a chain. The caller keeps that one alive as long as any copy builds chains. A move copies,
/// deliberately, so that a factory that was moved from stays as it was.
class ZEL_QT_EXPORT DefaultValidatorFactory : public ValidatorFactory<ValidatorKey, HintTree>
{
public:
    DefaultValidatorFactory();
    DefaultValidatorFactory(const DefaultValidatorFactory&);
    DefaultValidatorFactory& operator=(const DefaultValidatorFactory&);
    ~DefaultValidatorFactory();
};

} // namespace zel::qt
