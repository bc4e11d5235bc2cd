#include "qt/inc/validators/string_edit_validator.h"

#include "platform/smart_assert.h"

#include <boost/regex.hpp>

#include <locale>

namespace zel::qt {
namespace {

template <class Char>
void makeUpper(std::basic_string<Char>& text)
{
    const std::locale locale;
    std::use_facet<std::ctype<Char>>(locale).toupper(text.data(), text.data() + text.size());
}

} // namespace

StringEditValidator::StringEditValidator(std::size_t maxLen)
    : m_maxLen(maxLen)
{
    ZEL_SMART_ASSERT(m_maxLen > 0, "m_maxLen > 0").value("m_maxLen", m_maxLen);
}

StringEditValidator::~StringEditValidator() = default;

void StringEditValidator::setAllowedRegex(const std::wstring& regex)
{
    m_allowedRegex = regex;
}

void StringEditValidator::setStorageType(StorageType storageType)
{
    m_storageType = storageType;
}

void StringEditValidator::setUpperCase(bool upperCase)
{
    m_upperCase = upperCase;
}

bool StringEditValidator::validate(const QString& text, boost::any& value,
                                   const std::bitset<32>& /*flags*/)
{
    std::wstring wide = text.toStdWString().substr(0, m_maxLen);
    if (m_upperCase) {
        makeUpper(wide);
    }
    if (!m_allowedRegex.empty() && !boost::regex_match(wide, boost::wregex(m_allowedRegex))) {
        return false;
    }
    switch (m_storageType) {
    case Wide:
        value = wide;
        break;
    case Utf8:
        // Through a C string: a consumer of UTF-8 takes the text to end at the first zero.
        value = std::string(QString::fromStdWString(wide).toUtf8().constData());
        break;
    }
    return text.size() <= static_cast<std::int32_t>(m_maxLen);
}

QString StringEditValidator::reformat(const boost::any& value, const std::bitset<32>& /*flags*/)
{
    if (const auto* wide = boost::any_cast<std::wstring>(&value)) {
        std::wstring text = *wide;
        if (m_upperCase) {
            makeUpper(text);
        }
        return QString::fromStdWString(text);
    }
    if (const auto* utf8 = boost::any_cast<std::string>(&value)) {
        std::string text = *utf8;
        if (m_upperCase) {
            makeUpper(text);
        }
        return QString::fromStdString(text);
    }
    ZEL_SMART_ASSERT(false,
                     "value.type() == typeid(std::wstring) || value.type() == typeid(std::string)")
        .value("value.type().name()", value.type().name());
    return {};
}

} // namespace zel::qt
