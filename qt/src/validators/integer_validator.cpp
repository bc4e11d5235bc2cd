#include "qt/inc/integer_validator.h"

namespace zel::qt {

template struct IntegerValidator<unsigned short>;
template struct IntegerValidator<int>;
template struct IntegerValidator<unsigned int>;

} // namespace zel::qt
