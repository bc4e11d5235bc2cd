#pragma once

#include "qt/inc/controls/simple_line_edit.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/number_validator.h"

#include <QSignalSpy>
#include <QVBoxLayout>

#include <memory>

namespace zel::test {

/// A line edit with the focus above another one, in an active window. A test class has it as a
/// second base.
class LineEditForm
{
protected:
    /// False if the window does not become active.
    bool open()
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        m_validator = new NumberValidator;
        m_field = qt::SimpleLineEdit::create(m_window.get(), QStringLiteral("Length"), m_validator,
                                             0, qt::ExpandRight);
        m_other = qt::SimpleLineEdit::create(m_window.get(), QString(), new NumberValidator, 0,
                                             qt::ExpandRight);
        layout->addWidget(m_field);
        layout->addWidget(m_other);
        m_edit = &m_field->edit();
        m_changed = std::make_unique<QSignalSpy>(m_field, &qt::SimpleLineEdit::valueChanged);
        if (!showActive(*m_window)) {
            return false;
        }
        m_edit->setFocus();
        return m_edit->hasFocus();
    }

    void close()
    {
        m_changed.reset();
        m_window.reset();
    }

    /// How often the field has told of an end of editing.
    int changes() const
    {
        return m_changed->count();
    }

    std::unique_ptr<QWidget> m_window;
    NumberValidator* m_validator = nullptr;
    qt::SimpleLineEdit* m_field = nullptr;
    qt::SimpleLineEdit* m_other = nullptr;
    QLineEdit* m_edit = nullptr;
    std::unique_ptr<QSignalSpy> m_changed;
};

} // namespace zel::test
