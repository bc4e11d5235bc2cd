#include "qt/inc/controls/enum_box.h"

#include "platform/smart_assert.h"
#include "qt/inc/controls/multi_edit_line_edit.h"
#include "qt/inc/validators/forward_validator.h"
#include "qt/src/controls/accessible_description.h"
#include "qt/src/controls/fixed_colors.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLineEdit>
#include <QPixmap>

#include <boost/make_shared.hpp>

#include <functional>
#include <utility>

namespace zel::qt {
namespace {

/// Keeps the name of an entry from being normalised at the end of editing. The entry "1" with the
/// value of a load case would otherwise turn into the number 1.000 as the user passes through.
class NameKeepingValidator : public ForwardValidator
{
public:
    NameKeepingValidator(const boost::shared_ptr<IValidator>& validator,
                         std::function<bool(const QString&)> isName)
        : ForwardValidator(validator)
        , m_isName(std::move(isName))
    {
        setEditHintFunction(
            [validator](const QString& text) { return validator->getEditHint(text); });
    }

    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override
    {
        const bool accepted = ForwardValidator::validateWhenFinished(text, value, flags);
        if (accepted && m_isName(text)) {
            value = Name{text};
        }
        return accepted;
    }

    QString reformat(const boost::any& value, const std::bitset<32>& flags) override
    {
        const Name* name = boost::any_cast<Name>(&value);
        return name != nullptr ? name->text : ForwardValidator::reformat(value, flags);
    }

private:
    struct Name
    {
        QString text;
    };

    std::function<bool(const QString&)> m_isName;
};

} // namespace

SimpleEnumBox* SimpleEnumBox::create(QWidget* parent, const QString& label,
                                     bool (*const& eq)(const boost::any&, const boost::any&))
{
    ZEL_SMART_ASSERT(parent != nullptr, "parent");
    return new SimpleEnumBox(parent, label, eq);
}

SimpleEnumBox::SimpleEnumBox(QWidget* parent, const QString& label,
                             bool (*const& eq)(const boost::any&, const boost::any&))
    : QWidget(parent)
    , m_eq(eq)
{
    m_layout = new QHBoxLayout(this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    if (!label.isEmpty()) {
        m_label = new ZEL_QT_Label(Qt::PlainText, label, this);
        m_layout->addWidget(m_label);
    }
    m_combo = new ZEL_QT4_ComboBox(this, nullptr);
    m_combo->setSorting(false);
    m_combo->setEditable(false);
    m_combo->setDuplicatesEnabled(false);
    m_combo->setWidthTextEnabled(true);
    m_combo->setAccessibleName(label);
    if (m_label != nullptr && !label.contains(QLatin1Char('&'))) {
        // Some platforms name a combo box by its label only. As a buddy, though, the label would
        // take an ampersand for the mark of a shortcut.
        m_label->setBuddy(m_combo);
    }
    m_layout->addWidget(m_combo);
    setFocusProxy(m_combo);
    connect(m_combo, SIGNAL(textActivated(QString)), this, SLOT(onItemActivated(QString)));
}

SimpleEnumBox::~SimpleEnumBox()
{
    deleteEdit();
}

bool SimpleEnumBox::isValueValid() const
{
    return m_edit && m_edit->isValueValid();
}

void SimpleEnumBox::setSizeAdjustPolicy(QComboBox::SizeAdjustPolicy policy)
{
    m_combo->setSizeAdjustPolicy(policy);
}

void SimpleEnumBox::resize(int width, int height)
{
    QWidget::resize(width, height);
}

void SimpleEnumBox::onEditingFinished()
{
    if (m_validator == nullptr || m_combo->getCurrentId() == m_combo->getVariousId()) {
        return;
    }
    const QString text = editedText();
    if (findEntry(text) != nullptr) {
        return;
    }
    if (m_edit) {
        m_edit->onTextEdited(text);
    }
    Q_EMIT valueChanged();
}

void SimpleEnumBox::onItemActivated(const QString&)
{
    Q_EMIT valueChanged();
}

void SimpleEnumBox::setValues(const NamedValueList& values, const PixmapPtrList& pixmaps,
                              const std::deque<QColor>& backgroundColors)
{
    if (&values != &m_values) {
        m_values = values;
    }
    ZEL_SMART_ASSERT(m_combo != nullptr, "m_combo");
    if (!pixmaps.empty()) {
        m_combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    } else {
        m_combo->setWidthTextEnabled(true);
    }
    QSize iconSize(0, 0);
    m_combo->clear();
    m_combo->setInsertPolicy(QComboBox::InsertAtBottom);
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        QIcon icon;
        if (i < pixmaps.size() && pixmaps[i] != nullptr) {
            icon = QIcon(*pixmaps[i]);
            iconSize = iconSize.expandedTo(pixmaps[i]->size());
        }
        m_combo->insertItem(m_combo->count(), icon, m_values[i].first, QVariant());
        if (i < backgroundColors.size()) {
            m_combo->setItemData(static_cast<int>(i), backgroundColors[i], Qt::BackgroundRole);
            // A translucent colour leaves the text of the palette readable.
            if (backgroundColors[i].isValid() && backgroundColors[i].alpha() >= 128) {
                m_combo->setItemData(static_cast<int>(i), detail::textColorOn(backgroundColors[i]),
                                     Qt::ForegroundRole);
            }
        }
    }
    if (!m_values.empty()) {
        m_combo->setCurrentIndex(0);
    }
    if (!pixmaps.empty() && !iconSize.isNull()) {
        m_combo->setIconSize(iconSize);
    }
    m_combo->setMinimumWidth(m_combo->sizeHint().width());
}

void SimpleEnumBox::selectByName(const QString& name)
{
    ZEL_SMART_ASSERT(m_combo != nullptr, "m_combo");
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        if (m_values[i].first == name) {
            m_combo->setCurrentIndex(static_cast<int>(i));
            onSelected();
            return;
        }
    }
}

void SimpleEnumBox::selectByValue(const boost::any& value)
{
    ZEL_SMART_ASSERT(m_combo != nullptr, "m_combo");
    const bool editable = isEditable();
    ZEL_SMART_ASSERT(editable || !m_values.empty(), "m_combo->isEditable() || !m_values.empty()");
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        if (anyEq(m_values[i].second, value)) {
            m_combo->setCurrentIndex(static_cast<int>(i));
            if (editable) {
                m_combo->lineEdit()->setText(m_values[i].first);
            }
            onSelected();
            return;
        }
    }
    if (!editable) {
        const bool found = false;
        ZEL_SMART_ASSERT(found, "found").message("Value not found");
        return;
    }
    ZEL_SMART_ASSERT(m_validator != nullptr, "m_validator");
    if (m_validator == nullptr) {
        return;
    }
    m_combo->lineEdit()->setText(m_validator->reformat(value, {}));
    onSelected();
}

boost::any SimpleEnumBox::getSelectedValue() const
{
    if (m_values.empty()) {
        return {};
    }
    ZEL_SMART_ASSERT(m_combo != nullptr, "m_combo");
    if (isEditable()) {
        const QString text = editedText();
        // An entry without a value is a choice too: its name is not for the validator.
        if (const auto* entry = findEntry(text)) {
            return entry->second;
        }
        boost::any value;
        if (m_validator == nullptr || !m_validator->validate(text, value, {})) {
            return {};
        }
        return value;
    }
    const int i = m_combo->currentIndex();
    ZEL_SMART_ASSERT(i >= 0 && i < m_combo->count(), "i >= 0 && i < m_combo->count()");
    // The varies item is the one that lies behind the entries.
    if (i >= 0 && static_cast<std::size_t>(i) < m_values.size()) {
        return m_values[static_cast<std::size_t>(i)].second;
    }
    return {};
}

QString SimpleEnumBox::getNameForValue(const boost::any& value) const
{
    for (const auto& entry : m_values) {
        if (anyEq(entry.second, value)) {
            return entry.first;
        }
    }
    if (isEditable() && m_validator != nullptr) {
        return m_validator->reformat(value, {});
    }
    return {};
}

boost::any SimpleEnumBox::getValueForName(const QString& name) const
{
    ZEL_SMART_ASSERT(m_combo != nullptr, "m_combo");
    const auto* entry = findEntry(name);
    return entry != nullptr ? entry->second : boost::any();
}

void SimpleEnumBox::next()
{
    // The varies item is no step: it is not one of the values.
    int index = m_combo->currentIndex() + 1;
    if (m_combo->isVarious(index)) {
        ++index;
    }
    if (index < m_combo->count()) {
        m_combo->setCurrentIndex(index);
        Q_EMIT valueChanged();
    }
}

void SimpleEnumBox::previous()
{
    int index = m_combo->currentIndex() - 1;
    if (m_combo->isVarious(index)) {
        --index;
    }
    if (index >= 0) {
        m_combo->setCurrentIndex(index);
        Q_EMIT valueChanged();
    }
}

void SimpleEnumBox::setEditable(bool editable, IValidator::pointer validator)
{
    m_validator = std::move(validator);
    m_combo->setEditable(editable);
    if (!editable) {
        // The combo box deletes the line edit that it was given, so the rest goes as well.
        deleteEdit();
        return;
    }
    if (!m_edit) {
        IValidator::pointer ofEdit;
        if (m_validator != nullptr) {
            const auto isName = [this](const QString& text) { return findEntry(text) != nullptr; };
            ofEdit = boost::make_shared<NameKeepingValidator>(m_validator, isName);
        }
        m_edit = MultiEditLineEdit::create(parentWidget(), QString(), ofEdit, 0, ExpandRight);
        // Only its inner edit is to be seen, inside the combo box.
        m_edit->hide();
        m_edit->edit().setAccessibleName(m_combo->accessibleName());
    }
    m_combo->setLineEdit(&m_edit->edit());
    // No completion: «1» followed by Return has to stay 1 beside an entry named "10".
    m_combo->setCompleter(nullptr);
    connect(m_edit, SIGNAL(valueChanged()), this, SLOT(onEditingFinished()));
}

void SimpleEnumBox::addWidget(QWidget* w)
{
    ZEL_SMART_ASSERT(w != nullptr, "w");
    if (w != nullptr) {
        m_layout->addWidget(w);
    }
}

int SimpleEnumBox::getComboWidth() const
{
    return m_combo->width();
}

void SimpleEnumBox::onSelected() {}

ZEL_QT4_ComboBox& SimpleEnumBox::combo() const
{
    ZEL_SMART_ASSERT(m_combo != nullptr, "m_combo");
    return *m_combo;
}

bool SimpleEnumBox::anyEq(const boost::any& a, const boost::any& b) const
{
    ZEL_SMART_ASSERT(m_eq != nullptr, "m_eq != 0");
    if (a.empty() != b.empty()) {
        return false;
    }
    return m_eq != nullptr && m_eq(a, b);
}

bool SimpleEnumBox::anyEqAvailable() const
{
    return m_eq != nullptr;
}

void SimpleEnumBox::changeEvent(QEvent* e)
{
    if (e->type() == QEvent::ParentChange && m_edit) {
        m_edit->setParent(parentWidget());
    }
    QWidget::changeEvent(e);
}

const NamedValueList::value_type* SimpleEnumBox::findEntry(const QString& name) const
{
    for (const auto& entry : m_values) {
        if (entry.first == name) {
            return &entry;
        }
    }
    return nullptr;
}

bool SimpleEnumBox::isEditable() const
{
    return m_combo->isEditable();
}

QString SimpleEnumBox::editedText() const
{
    return m_combo->lineEdit()->text();
}

void SimpleEnumBox::deleteEdit()
{
    delete m_edit.data();
}

MultiEditEnumBox* MultiEditEnumBox::create(QWidget* parent, const QString& label,
                                           bool (*const& eq)(const boost::any&, const boost::any&))
{
    ZEL_SMART_ASSERT(eq != nullptr, "eqFn");
    return new MultiEditEnumBox(parent, label, eq);
}

MultiEditEnumBox::MultiEditEnumBox(QWidget* parent, const QString& label,
                                   bool (*const& eq)(const boost::any&, const boost::any&))
    : SimpleEnumBox(parent, label, eq)
{
    ZEL_SMART_ASSERT(anyEqAvailable(), "anyEqAvailable()");
    // Beside the connection of the base, on purpose: one choice of the user is told twice.
    connect(&combo(), SIGNAL(textActivated(QString)), this, SLOT(onItemActivated(QString)));
    connect(&combo(), SIGNAL(editTextChanged(QString)), this, SLOT(onLineEditTextChanged()));
    connect(&combo(), SIGNAL(activated(int)), this, SIGNAL(activated(int)));
}

MultiEditEnumBox::~MultiEditEnumBox() = default;

void MultiEditEnumBox::reset()
{
    setVarying(false);
    m_firstRead = true;
    combo().removeVarious();
}

void MultiEditEnumBox::readValue(const boost::any& value)
{
    if (m_firstRead) {
        selectByValue(value);
        m_firstRead = false;
    } else if (!m_dataVaries && !anyEq(value, getSelectedValue())) {
        forceVaries();
    }
}

bool MultiEditEnumBox::dataVaries() const
{
    return m_dataVaries;
}

boost::any MultiEditEnumBox::getCurrentValue() const
{
    return dataVaries() ? boost::any() : getSelectedValue();
}

void MultiEditEnumBox::setValue(const boost::any& value)
{
    selectByValue(value);
}

void MultiEditEnumBox::forceVaries()
{
    setVarying(true);
    m_firstRead = false;
    combo().addVarious(true);
}

void MultiEditEnumBox::onItemActivated(const QString& text)
{
    // Whoever chooses the varies item again, or presses Return on it, decides nothing: its text
    // must never be written as a value.
    const bool chosenAgain = combo().getCurrentId() == combo().getVariousId() &&
                             text == combo().itemText(combo().currentIndex());
    setVarying(chosenAgain);
    Q_EMIT valueChanged();
}

void MultiEditEnumBox::onLineEditTextChanged()
{
    setVarying(combo().getCurrentId() == combo().getVariousId());
}

void MultiEditEnumBox::onSelected()
{
    setVarying(false);
    Q_EMIT valueChanged();
}

void MultiEditEnumBox::setVarying(bool varies)
{
    m_dataVaries = varies;
    detail::describeVarying(combo(), varies);
}

} // namespace zel::qt
