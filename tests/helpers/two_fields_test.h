#pragma once

#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/number_validator.h"

#include <QVBoxLayout>

#include <memory>

namespace zel::test {

/// The base of tests of a line edit that stands above another one in an active window. Its class
/// calls setUpFields() in init() and tearDownFields() in cleanup().
class TwoFieldsTest : public CheckedTest
{
protected:
    /// Both take numbers; the other field has the focus.
    void setUpFields()
    {
        m_window = std::make_unique<QWidget>();
        new QVBoxLayout(m_window.get());
        m_field = add(new NumberValidator);
        m_other = add(new NumberValidator);
        QVERIFY(showActive(*m_window));
        m_other->setFocus();
    }
    void tearDownFields()
    {
        m_window.reset();
    }

    /// A further field below, which takes the validator.
    qt::MultiEditLineEdit* add(qt::IValidator* validator)
    {
        auto* field =
            qt::MultiEditLineEdit::create(m_window.get(), QString(), validator, 0, qt::ExpandRight);
        m_window->layout()->addWidget(field);
        field->show();
        return field;
    }

    std::unique_ptr<QWidget> m_window;
    qt::MultiEditLineEdit* m_field = nullptr;
    qt::MultiEditLineEdit* m_other = nullptr;
};

} // namespace zel::test
