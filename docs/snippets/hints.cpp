#include "docs/snippets/expect.h"
//! [headers]
#include "qt/inc/controls.h"
#include "qt/inc/factories.h"
#include "qt/inc/hint_json.h"
#include "units/inc/units.h"

#include <QJsonDocument>
#include <QJsonObject>

using zel::qt::NamedValueList;
using Quantity = zel::units::v1::IConverter::quantity;
//! [headers]

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

//! [functions]
bool equalInt(const boost::any& a, const boost::any& b)
{
    const int* x = boost::any_cast<int>(&a);
    const int* y = boost::any_cast<int>(&b);
    return x != nullptr && y != nullptr ? *x == *y : a.empty() && b.empty();
}

NamedValueList steelGrades()
{
    return {{"S235", 235}, {"S355", 355}};
}
//! [functions]

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget panel;
    {
        //! [code]
        zel::qt::HintTree hints;
        hints.put("editor", boost::any(std::string("lineedit")));
        hints.put("validator.type", boost::any(std::string("unit")));
        hints.put("validator.unit_id", boost::any(zel::units::UnitId(1001)));
        const zel::qt::EditorMetaData length = zel::qt::createEditorFromHints(&panel, hints);
        //! [code]
        EXPECT(length.editor != nullptr && length.editor->parentWidget() == &panel);
        QVector<double> written;
        //! [value]
        length.setValue(Quantity{zel::units::UnitId(1001), 2.5});
        const zel::qt::OnValueChangedHook hook(length.editor, [&] {
            boost::any value;
            if (length.getValue(value) && !value.empty()) {
                const double metres = boost::any_cast<Quantity>(value).value;
                // ... to be written
                //! [value]
                written.append(metres);
                //! [value]
            }
        });
        //! [value]
        auto* edit = length.editor->findChild<QLineEdit*>();
        EXPECT(edit->text() == "2.500 m");
        boost::any value;
        EXPECT(length.getValue(value) && boost::any_cast<Quantity>(value).value == 2.5);
        edit->selectAll();
        QTest::keyClicks(edit, "300 cm");
        QTest::keyClick(edit, Qt::Key_Return);
        EXPECT(written == QVector<double>{3.0});
        length.forceVaries();
        EXPECT(!length.getValue(value));
    }

    const QByteArray text = R"({"editor": "enumbox", "equal_value_fn": "equal int",
                                "values": "steel grades"})";
    //! [file]
    zel::qt::HintRegistry registry;
    registry.addComparison("equal int", &equalInt);
    registry.addValues("steel grades", steelGrades());
    registry.addDefaultFunction("standard width", [](const QString&) { return "3.6"; });
    const zel::qt::HintTree hints =
        zel::qt::hintsFromJson(QJsonDocument::fromJson(text).object(), registry);
    //! [file]
    const zel::qt::EditorMetaData grade = zel::qt::createEditorFromHints(&panel, hints);
    grade.setValue(355);
    boost::any value;
    EXPECT(grade.getValue(value) && boost::any_cast<int>(value) == 355);

    const QByteArray width = R"({"editor": "lineedit", "optional": true,
                                 "default_fn": "standard width", "validator": {"type": "double"}})";
    const zel::qt::EditorMetaData optional = zel::qt::createEditorFromHints(
        &panel, zel::qt::hintsFromJson(QJsonDocument::fromJson(width).object(), registry));
    optional.editor->findChild<QToolButton*>()->click();
    QTest::keyClick(optional.editor->findChild<QLineEdit*>(), Qt::Key_Return);
    EXPECT(optional.getValue(value) && boost::any_cast<double>(value) == 3.6);
    return failedExpectations();
}
