#pragma once

#include "qt/inc/validators/i_validator.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace zel::qt {

/// A text, limited in length and, if asked for, to a regular expression and to upper case. Its
/// value is a std::wstring or a std::string in UTF-8, as the caller's storage wants it. There is
/// no locale in it and nothing more at the end of editing than while typing.
class ZEL_QT_EXPORT StringEditValidator : public IValidator
{
public:
    /// The type of the value.
    enum StorageType : std::int32_t
    {
        Utf8 = 0, ///< std::string in UTF-8
        Wide = 1  ///< std::wstring
    };

    /// @param maxLen longest text in wide characters; 0 asserts "m_maxLen > 0". Lengths above
    ///               2147483647 refuse every text: the comparison is one of 32 bits.
    explicit StringEditValidator(std::size_t maxLen);
    ~StringEditValidator() override;

    /// The wide regular expression that the whole text must match; an empty one matches all.
    /// It is compiled by validate(), which then throws what the regular expression library throws
    /// for one that is not well formed.
    void setAllowedRegex(const std::wstring& regex);
    /// The type that validate() stores; `Wide` after construction.
    void setStorageType(StorageType storageType);
    /// Whether text and value are in upper case, as the default std::locale maps it.
    void setUpperCase(bool upperCase);

protected:
    /// Cuts the text to the longest length, maps its case and tests it. A text that is too long is
    /// refused, and `value` holds what was cut; a text against the expression is refused, and
    /// `value` stays as it was.
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    /// The text of a std::wstring or a std::string, whichever is stored, at its full length.
    /// Any other value, an empty one included, asserts "value.type() == typeid(std::wstring) ||
    /// value.type() == typeid(std::string)" and gives an empty text.
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

private:
    std::size_t m_maxLen;
    bool m_upperCase = false;
    std::wstring m_allowedRegex;
    StorageType m_storageType = Wide;
};

} // namespace zel::qt
