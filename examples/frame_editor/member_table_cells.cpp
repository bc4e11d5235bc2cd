#include "examples/frame_editor/member_table_cells.h"

#include "examples/frame_editor/count_validator.h"
#include "examples/frame_editor/form_editors.h"
#include "examples/frame_editor/quantity_validator.h"
#include "examples/frame_editor/unit_settings.h"

#include <QLineEdit>
#include <QObject>

#include <boost/make_shared.hpp>

namespace frame_editor {

using Cell = MemberColumn::Cell;
using zel::qt::IValidator;
using zel::units::UnitId;
using zel::units::v1::Context;
using zel::units::v1::IConverter;

namespace {

/// A text of limited length; no value at all shows as an empty text.
class TextValidator : public zel::qt::StringEditValidator
{
public:
    explicit TextValidator(int longest)
        : StringEditValidator(static_cast<std::size_t>(longest))
    {
        setStorageType(Utf8);
    }

protected:
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
    {
        // A zero character would end the text here, whatever stands behind it.
        return !text.contains(QChar(QChar::Null)) &&
               StringEditValidator::validate(text, value, flags);
    }
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override
    {
        return value.empty() ? QString() : StringEditValidator::reformat(value, flags);
    }
};

/// Yes and no, as this program and as spreadsheets write them, in the same words under every
/// language that the window speaks.
class FlagValidator : public IValidator
{
public:
    bool validate(const QString& text, boost::any& value, const std::bitset<32>&) override
    {
        const QString word = text.trimmed().toLower();
        const bool yes = word == QLatin1String("yes") || word == QLatin1String("true") ||
                         word == QLatin1String("1");
        const bool no = word == QLatin1String("no") || word == QLatin1String("false") ||
                        word == QLatin1String("0");
        value = yes;
        return yes || no;
    }
    QString reformat(const boost::any& value, const std::bitset<32>&) override
    {
        const bool* flag = boost::any_cast<bool>(&value);
        return flag == nullptr ? QString() : *flag ? QStringLiteral("yes") : QStringLiteral("no");
    }
};

/// A number with a unit on its way to another program and back.
class ClipboardQuantityValidator : public IValidator
{
public:
    ClipboardQuantityValidator(const Context& units, int unitSet)
        : m_units(units)
        , m_unitSet(unitSet)
        , m_reader(units, unitSet)
    {}

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
    {
        return m_reader.validate(text, value, flags);
    }
    QString reformat(const boost::any& value, const std::bitset<32>&) override
    {
        const auto* quantity = boost::any_cast<IConverter::quantity>(&value);
        return quantity ? exactQuantityText(m_units, m_unitSet, quantity->value) : QString();
    }
    QString refusal(const QString& text) const
    {
        return m_reader.refusal(text);
    }

private:
    Context m_units;
    int m_unitSet;
    QuantityValidator m_reader; ///< never writes, so it has nothing to remember
};

CellText plainText(const MemberColumn& column)
{
    return {boost::make_shared<TextValidator>(column.longest),
            [longest = column.longest](const QString& text) {
                return text.size() > longest
                           ? QObject::tr("this is longer than %1 characters").arg(longest)
                           : QObject::tr("\"%1\" cannot stand here").arg(text);
            }};
}

CellText countText(const MemberColumn& column)
{
    const int minimum = column.property->minimum;
    const int maximum = column.property->maximum;
    return {boost::make_shared<CountValidator>(minimum, maximum),
            [minimum, maximum](const QString& text) {
                return CountValidator::refusal(text, minimum, maximum);
            }};
}

/// The name of a choice, in English under every language, and the key of files as well: rows that
/// are copied in one language can be pasted in another.
CellText choiceText(const MemberColumn& column, const FrameModel& model)
{
    zel::qt::NamedValueList names;
    const MemberColumn::Choices choices = column.choices(model);
    for (const auto& [key, label] : choices) {
        names.emplace_back(column.property ? column.property->choiceName(key) : label,
                           key.toStdString());
    }
    for (const auto& [key, label] : choices) {
        names.emplace_back(key, key.toStdString());
    }
    const auto validator = boost::make_shared<zel::qt::NamedValueListValidator>(names);
    validator->set_equal_to(&equalTexts);
    return {validator, [column](const QString& text) { return column.noSuchChoice(text); }};
}

} // namespace

CellText editingText(const MemberColumn& column)
{
    if (column.cell == Cell::Count) {
        return countText(column);
    }
    if (column.cell != Cell::Quantity) {
        return plainText(column);
    }
    const auto validator = boost::make_shared<QuantityValidator>(
        zel::units::v1::get_active_input_context(), column.property->unitSet);
    return {validator, [validator](const QString& text) { return validator->refusal(text); }};
}

CellText clipboardText(const MemberColumn& column, const FrameModel& model)
{
    switch (column.cell) {
    case Cell::Button:
        return {};
    case Cell::Count:
        return countText(column);
    case Cell::Choice:
        return choiceText(column, model);
    case Cell::Flag:
        return {boost::make_shared<FlagValidator>(), [](const QString& text) {
                    return QObject::tr("\"%1\" is neither yes nor no").arg(text);
                }};
    case Cell::Quantity: {
        const auto validator = boost::make_shared<ClipboardQuantityValidator>(
            zel::units::v1::get_active_input_context(), column.property->unitSet);
        return {validator, [validator](const QString& text) { return validator->refusal(text); }};
    }
    case Cell::Text:
        break;
    }
    return plainText(column);
}

QString exactQuantityText(const Context& units, int unitSet, double value)
{
    const UnitId set = UnitId(unitSet);
    QuantityValidator reader(units, unitSet);
    const auto isExact = [&reader, value](const QString& text) {
        boost::any read;
        return reader.validate(text, read, {}) &&
               boost::any_cast<IConverter::quantity>(read).value == value;
    };
    QString shown = formatQuantity(units, unitSet, value);
    if (isExact(shown)) {
        return shown;
    }
    // The unit that is shown, or else one in which nothing is lost on the way: that of the base.
    std::vector<UnitId> ways{units.format_provider().get_unit(set)};
    const std::vector<UnitId>& all = units.unit_provider().get_set_units(set);
    ways.insert(ways.end(), all.begin(), all.end());
    constexpr int fewest = 6;
    constexpr int most = 17;
    for (const UnitId unit : ways) {
        const QString label = QString::fromStdString(units.unit_provider().get_label(unit));
        const double number = units.converter().convert({set, value}, unit).value;
        for (int digits = fewest; digits <= most; ++digits) {
            QString text = QString::number(number, 'g', digits) + QLatin1Char(' ') + label;
            if (isExact(text)) {
                return text;
            }
        }
    }
    return shown;
}

TextCellDelegate::TextCellDelegate(const CellText& text, const Refuse& refuse, QObject* parent)
    : LineEditItemDelegate(text.validator, parent)
    , m_text(text)
    , m_refuse(refuse)
{}

void TextCellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const
{
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    const QString text = edit ? edit->text() : QString();
    // What is there may stay, whatever the limits are; the blank row that was left blank as well.
    const auto present = index.data(zel::qt::EditRole).value<boost::any>();
    if (text == m_text.validator->reformat(present, {})) {
        return;
    }
    boost::any value;
    if (edit && !m_text.validator->validate(text, value, {})) {
        m_refuse(index, m_text.refusal(text));
        return;
    }
    LineEditItemDelegate::setModelData(editor, model, index);
}

NoCellDelegate::NoCellDelegate(QObject* parent)
    : QItemDelegate(parent)
{}

QWidget* NoCellDelegate::createEditor(QWidget*, const QStyleOptionViewItem&,
                                      const QModelIndex&) const
{
    return nullptr;
}

} // namespace frame_editor
