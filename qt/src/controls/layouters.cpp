#include "qt/inc/controls/layouters.h"

#include "platform/smart_assert.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace zel::qt {
namespace {

const int margin = 4;
const int gridSpacing = 4;

void nameAfterLabel(QWidget& widget, QLabel& label)
{
    // As a buddy the label would take an ampersand for the mark of a shortcut.
    if (!label.text().contains(QLatin1Char('&'))) {
        label.setBuddy(&widget);
    }
    QWidget* target = &widget;
    while (target->focusProxy() != nullptr) {
        target = target->focusProxy();
    }
    if (target->accessibleName().isEmpty()) {
        target->setAccessibleName(label.text());
    }
}

bool hasLayout(const QLayout* layout)
{
    ZEL_SMART_ASSERT(layout != nullptr, "m_layout");
    return layout != nullptr;
}

} // namespace

ILayouter::ILayouter() = default;
ILayouter::~ILayouter() = default;

void ILayouter::onFinish() {}

VBoxLayouter::VBoxLayouter() = default;
VBoxLayouter::~VBoxLayouter() = default;

void VBoxLayouter::onCreate(QWidget* container)
{
    m_layout = new QVBoxLayout(container);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(0);
}

void VBoxLayouter::onAdd(QWidget* widget)
{
    if (hasLayout(m_layout)) {
        m_layout->addWidget(widget, 0, {});
    }
}

void VBoxLayouter::onFinish()
{
    if (hasLayout(m_layout)) {
        m_layout->addStretch(1);
    }
}

QVBoxLayout* VBoxLayouter::layout() const
{
    return m_layout;
}

HBoxLayouter::HBoxLayouter() = default;
HBoxLayouter::~HBoxLayouter() = default;

void HBoxLayouter::onCreate(QWidget* container)
{
    m_layout = new QHBoxLayout(container);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(0);
}

void HBoxLayouter::onAdd(QWidget* widget)
{
    if (hasLayout(m_layout)) {
        m_layout->addWidget(widget, 0, {});
    }
}

void HBoxLayouter::onFinish()
{
    if (hasLayout(m_layout)) {
        m_layout->addStretch(1);
    }
}

QHBoxLayout* HBoxLayouter::layout() const
{
    return m_layout;
}

GridLayouter::GridLayouter(ExpandDirection direction)
    : m_direction(direction)
{}

GridLayouter::~GridLayouter() = default;

void GridLayouter::onCreate(QWidget* container)
{
    m_layout = new QGridLayout(container);
    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setSpacing(gridSpacing);
}

void GridLayouter::onAdd(QWidget* widget)
{
    if (!hasLayout(m_layout)) {
        return;
    }
    m_layout->addWidget(widget, m_row, m_column, {});
    if (m_direction == ExpandDown) {
        m_row += m_cellSkip + 1;
    } else {
        m_column += m_cellSkip + 1;
    }
}

void GridLayouter::setCellSkip(int cells)
{
    m_cellSkip = cells;
}

void GridLayouter::setPosition(int row, int column)
{
    m_row = row;
    m_column = column;
}

QGridLayout* GridLayouter::layout() const
{
    return m_layout;
}

PropertyGridLayouter::PropertyGridLayouter() = default;
PropertyGridLayouter::~PropertyGridLayouter() = default;

void PropertyGridLayouter::onCreate(QWidget* container)
{
    m_parent = container;
    m_layout = new QGridLayout(container);
}

void PropertyGridLayouter::onAdd(QWidget* widget)
{
    if (!hasLayout(m_layout)) {
        return;
    }
    // Always the control column, wherever the position stood.
    m_layout->addWidget(widget, m_row, 1);
    ++m_row;
    m_column = 0;
}

void PropertyGridLayouter::onAdd(QWidget* widget, const QString& label)
{
    if (!hasLayout(m_layout)) {
        return;
    }
    auto* caption = new QLabel(label, m_parent);
    _add(caption);
    _add(widget);
    nameAfterLabel(*widget, *caption);
}

void PropertyGridLayouter::onFinish()
{
    if (hasLayout(m_layout)) {
        m_layout->setRowStretch(m_layout->rowCount() - 1, 1);
        m_layout->setColumnStretch(m_layout->columnCount() - 1, 1);
    }
}

QGridLayout* PropertyGridLayouter::layout() const
{
    return m_layout;
}

void PropertyGridLayouter::_add(QWidget* widget)
{
    m_layout->addWidget(widget, m_row, m_column);
    ++m_column;
    if (m_column == 2) {
        ++m_row;
        m_column = 0;
    }
}

} // namespace zel::qt
