// The blocks of the page small_host.md, in its order, are a whole program: what stands between the
// marks here, and nothing else. The rest of this file drives its window or, given a file name,
// takes a picture of it.
#include "docs/snippets/expect.h"

//! [headers]
#include "qt/inc/controls.h"
#include "qt/inc/factories.h"
#include "qt/inc/hint_json.h"
#include "units/inc/units.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QJsonDocument>
#include <QListWidget>
#include <QMainWindow>
#include <QToolBar>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <vector>

using namespace zel::qt;
using namespace zel::units;
using Quantity = v1::IConverter::quantity;
//! [headers]

#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <cmath>

//! [model]
struct Beam
{
    std::string name; // in UTF-8
    double length;    // in metres
    double load;      // in kN/m
    int grade;        // the yield strength of the steel, in N/mm2
};
//! [model]

//! [property]
struct Property
{
    QString caption;
    QByteArray hints; // what edits it, as JSON
    bool (*equal)(const boost::any&, const boost::any&);
    std::function<boost::any(const Beam&)> get;
    std::function<void(Beam&, const boost::any&)> set;
};
//! [property]

//! [equal]
template <class T>
bool equalAs(const boost::any& a, const boost::any& b)
{
    const T* x = boost::any_cast<T>(&a);
    const T* y = boost::any_cast<T>(&b);
    return x != nullptr && y != nullptr && *x == *y;
}

bool equalQuantities(const boost::any& a, const boost::any& b)
{
    const auto* x = boost::any_cast<Quantity>(&a);
    const auto* y = boost::any_cast<Quantity>(&b);
    return x != nullptr && y != nullptr && x->unit_id == y->unit_id && x->value == y->value;
}
//! [equal]

//! [properties]
template <class T>
Property plain(const QString& caption, const QByteArray& hints, T Beam::*member)
{
    return {caption, hints, &equalAs<T>, [=](const Beam& beam) { return boost::any(beam.*member); },
            [=](Beam& beam, const boost::any& value) { beam.*member = boost::any_cast<T>(value); }};
}

Property quantity(const QString& caption, int unitSet, double Beam::*member)
{
    const UnitId id = UnitId(unitSet);
    const QByteArray hints = R"({"editor": "lineedit", "validator": {"type": "unit", "unit_id": )" +
                             QByteArray::number(unitSet) + "}}";
    return {caption, hints, &equalQuantities,
            [=](const Beam& beam) {
                return boost::any(Quantity{id, beam.*member});
            },
            [=](Beam& beam, const boost::any& value) {
                beam.*member = boost::any_cast<Quantity>(value).value;
            }};
}

const std::vector<Property>& properties()
{
    static const std::vector<Property> all = {
        plain(
            "Name:", R"({"editor": "lineedit", "validator": {"type": "string", "max_length": 20}})",
            &Beam::name),
        quantity("Length:", 1001, &Beam::length),
        quantity("Load:", 1191, &Beam::load),
        plain("Steel:",
              R"({"editor": "enumbox", "equal_value_fn": "equal int",
                  "values": {"type": "int", "entries": [["S235", 235], ["S355", 355]]}})",
              &Beam::grade),
    };
    return all;
}
//! [properties]

//! [change]
class Change : public QUndoCommand
{
public:
    Change(std::vector<Beam>& model, std::vector<Beam> changed)
        : m_model(model)
        , m_other(std::move(changed))
    {}

    void undo() override
    {
        m_model.swap(m_other);
    }

    void redo() override
    {
        m_model.swap(m_other);
    }

private:
    std::vector<Beam>& m_model;
    std::vector<Beam> m_other; // as it is when this step is undone, or not yet done
};
//! [change]

//! [window]
class Window : public QMainWindow
{
public:
    explicit Window(std::vector<Beam> beams)
        : m_beams(std::move(beams))
    {
        m_registry.addComparison("equal int", &equalAs<int>);

        auto* middle = new QWidget;
        m_layout = new QHBoxLayout(middle);
        m_list = new QListWidget;
        m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        for (std::size_t row = 0; row < m_beams.size(); ++row) {
            m_list->addItem(QString()); // fill() gives it its name
        }
        m_layout->addWidget(m_list);
        setCentralWidget(middle);

        QToolBar* bar = addToolBar("Edit");
        connect(bar->addAction("Undo"), &QAction::triggered, [this] {
            commitPending();
            m_steps.undo();
            fill();
        });
        connect(bar->addAction("Redo"), &QAction::triggered, [this] {
            commitPending();
            m_steps.redo();
            fill();
        });
        auto* units = new QComboBox;
        for (int column = 0; column < 10; ++column) {
            units->addItem(QString("Units %1").arg(column));
        }
        bar->addWidget(units);

        connect(m_list, &QListWidget::itemSelectionChanged, [this] { fill(); });
        connect(units, QOverload<int>::of(&QComboBox::currentIndexChanged), [this](int column) {
            v1::set_active_input_context(v1::Context(column));
            makePanel();
        });
        makePanel();
        m_list->setCurrentRow(0);
    }

private:
    struct Field
    {
        EditorMetaData editor;
        std::unique_ptr<OnValueChangedHook> hook;
        boost::any shown; // what the editor gave when it had been filled
    };
    //! [window]

    //! [panel]
    void makePanel()
    {
        m_fields.clear();
        delete m_panel;
        m_panel = new QWidget;
        m_layout->addWidget(m_panel);
        PropertyGridLayouter layouter;
        layouter.onCreate(m_panel);
        for (std::size_t i = 0; i < properties().size(); ++i) {
            const QJsonObject hints = QJsonDocument::fromJson(properties()[i].hints).object();
            Field field;
            field.editor = createEditorFromHints(m_panel, hintsFromJson(hints, m_registry));
            field.hook =
                std::make_unique<OnValueChangedHook>(field.editor.editor, [this, i] { write(i); });
            layouter.onAdd(field.editor.editor, properties()[i].caption);
            m_fields.push_back(std::move(field));
        }
        layouter.onAdd(new QWidget(m_panel)); // the last row takes the free space
        layouter.onFinish();
        fill();
    }
    //! [panel]

    //! [fill]
    void showNames()
    {
        for (std::size_t row = 0; row < m_beams.size(); ++row) {
            m_list->item(int(row))->setText(QString::fromStdString(m_beams[row].name));
        }
    }

    void fill()
    {
        showNames();
        m_panel->setEnabled(!selectedRows().empty());
        for (std::size_t i = 0; i < m_fields.size(); ++i) {
            fillField(i);
        }
    }

    void fillField(std::size_t i)
    {
        const std::vector<std::size_t> rows = selectedRows();
        if (rows.empty()) {
            return;
        }
        const Property& property = properties()[i];
        const boost::any first = property.get(m_beams[rows.front()]);
        bool differ = false;
        for (std::size_t row : rows) {
            differ = differ || !property.equal(property.get(m_beams[row]), first);
        }
        Field& field = m_fields[i];
        m_filling = true; // filling is not editing
        if (auto* edit = qobject_cast<SimpleLineEdit*>(field.editor.editor)) {
            edit->edit().clear();
            edit->onTextEdited(QString()); // the colour of a refused text would stay
        }
        if (differ) {
            field.editor.forceVaries();
        } else {
            field.editor.setValue(first);
        }
        m_filling = false;
        field.shown = boost::any();
        field.editor.getValue(field.shown);
    }

    std::vector<std::size_t> selectedRows() const
    {
        std::vector<std::size_t> rows;
        for (int row = 0; row < m_list->count(); ++row) {
            if (m_list->item(row)->isSelected()) {
                rows.push_back(std::size_t(row));
            }
        }
        return rows;
    }
    //! [fill]

    //! [write]
    void write(std::size_t i)
    {
        const Property& property = properties()[i];
        boost::any value;
        if (m_filling || !m_fields[i].editor.getValue(value) || value.empty() ||
            property.equal(value, m_fields[i].shown)) {
            return; // not an edit, not decided, not valid, or only passed through
        }
        std::vector<Beam> changed = m_beams;
        for (std::size_t row : selectedRows()) {
            property.set(changed[row], value);
        }
        m_steps.push(new Change(m_beams, std::move(changed)));
        showNames();
        fillField(i); // the others stay, also a text in them that was refused
    }
    //! [write]

    //! [pending]
    void commitPending()
    {
        if (QWidget* focus = QApplication::focusWidget()) {
            focus->clearFocus(); // ends the editing
        }
    }
    //! [pending]

    //! [members]
    std::vector<Beam> m_beams;
    QUndoStack m_steps;
    HintRegistry m_registry;
    QHBoxLayout* m_layout = nullptr;
    QListWidget* m_list = nullptr;
    QWidget* m_panel = nullptr;
    std::vector<Field> m_fields;
    bool m_filling = false;
    //! [members]

public:
    const std::vector<Beam>& beams() const
    {
        return m_beams;
    }
    //! [members]
};
//! [members]

namespace {

void type(Window& window, int field, const char* text)
{
    auto* edit = window.findChildren<MultiEditLineEdit*>().at(field);
    edit->edit().setFocus();
    edit->selectAll();
    QTest::keyClicks(&edit->edit(), text);
}

void checkWindow(Window& window)
{
    QApplication::setActiveWindow(&window);
    auto* list = window.findChild<QListWidget*>();
    const auto edits = [&] { return window.findChildren<MultiEditLineEdit*>(); };
    EXPECT(list->item(0)->text() == "B1");
    EXPECT(edits().size() == 3 && edits().at(1)->edit().text() == "6.123 m");

    // Passed through: the digit that is not shown stays.
    edits().at(1)->edit().setFocus();
    QTest::keyClick(&edits().at(1)->edit(), Qt::Key_Return);
    edits().at(2)->edit().setFocus();
    EXPECT(window.beams()[0].length == 6.1234);

    list->selectAll();
    EXPECT(edits().at(1)->edit().text() == getVariesString());
    EXPECT(edits().at(2)->edit().text() == "5.00 kN/m");
    QTest::keyClick(&edits().at(1)->edit(), Qt::Key_Return);
    EXPECT(window.beams()[0].length == 6.1234 && window.beams()[1].length == 7.5);
    type(window, 1, "20 ft");
    QTest::keyClick(&edits().at(1)->edit(), Qt::Key_Return);
    EXPECT(std::abs(window.beams()[0].length - 6.096) < 1e-12);
    EXPECT(window.beams()[1].length == window.beams()[0].length);
    type(window, 2, "8 m");
    QTest::keyClick(&edits().at(2)->edit(), Qt::Key_Return);
    EXPECT(window.beams()[0].load == 5.0 && edits().at(2)->edit().text() == "8 m");
    type(window, 0, "B");
    QTest::keyClick(&edits().at(0)->edit(), Qt::Key_Return);
    EXPECT(window.beams()[1].name == "B" && list->item(1)->text() == "B");
    EXPECT(edits().at(2)->edit().text() == "8 m");

    // What is being typed is a step of its own before "Undo" takes it back.
    const auto undo = window.findChild<QToolBar*>()->actions().at(0);
    type(window, 2, "7.5");
    undo->trigger();
    EXPECT(window.beams()[0].load == 5.0 && edits().at(2)->edit().text() == "5.00 kN/m");
    undo->trigger();
    EXPECT(list->item(1)->text() == "B2");
    undo->trigger();
    EXPECT(window.beams()[0].length == 6.1234 && window.beams()[1].length == 7.5);

    list->clearSelection();
    list->setCurrentRow(1);
    auto* box = window.findChild<MultiEditEnumBox*>();
    EXPECT(boost::any_cast<int>(box->getSelectedValue()) == 355);
    box->previous();
    EXPECT(window.beams()[1].grade == 235 && window.beams()[0].grade == 235);

    window.findChild<QToolBar*>()->findChild<QComboBox*>()->setCurrentIndex(8);
    EXPECT(edits().at(1)->edit().text() == "24.61 ft");
    EXPECT(window.beams()[1].length == 7.5);
    v1::set_active_input_context(v1::Context(0));
}

} // namespace

//! [main]
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Window window({{"B1", 6.1234, 5.0, 235}, {"B2", 7.5, 5.0, 355}});
    window.show();
    //! [main]
    QTimer::singleShot(0, &window, [&] {
        if (argc > 1) {
            window.findChild<QListWidget*>()->selectAll();
            window.grab().save(QString::fromLocal8Bit(argv[1]));
        } else {
            checkWindow(window);
        }
        application.exit(failedExpectations());
    });
    //! [main]
    return application.exec();
}
//! [main]
