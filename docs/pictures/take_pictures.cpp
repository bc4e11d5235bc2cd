// Takes the pictures of the guide: take_pictures FOLDER [dark]. Runs off screen; scripts/docs calls
// it. For looking the controls over, "dark" gives a dark palette and Qt's option -reverse mirrors
// all.
#include "qt/inc/controls.h"
#include "qt/inc/delegates.h"
#include "qt/inc/editor2d.h"
#include "qt/inc/graphics.h"
#include "qt/inc/table_view.h"
#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <QApplication>
#include <QDir>
#include <QFormLayout>
#include <QGraphicsScene>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QStandardItemModel>
#include <QTest>

#include <boost/make_shared.hpp>

#include <cstdio>
#include <cstring>
#include <memory>

using namespace zel::qt;
using namespace zel::units;
using zel::units::v1::IConverter;

namespace {

const UnitId lengths = UnitId(1001);

/// Writes a window and the popups that float over it as one picture.
bool take(QWidget& window, const QString& file)
{
    window.show();
    QCoreApplication::processEvents();
    QRect area(window.geometry());
    QVector<QWidget*> floating;
    for (auto* popup : window.findChildren<QWidget*>()) {
        if (popup->isWindow() && popup->isVisible() && !popup->size().isEmpty()) {
            floating.append(popup);
            area |= popup->geometry().adjusted(0, 0, 4, 4);
        }
    }
    QPixmap picture(area.size());
    picture.fill(window.palette().color(QPalette::Window));
    QPainter painter(&picture);
    painter.drawPixmap(window.pos() - area.topLeft(), window.grab());
    for (QWidget* popup : floating) {
        painter.drawPixmap(popup->pos() - area.topLeft(), popup->grab());
    }
    painter.end();
    window.hide();
    return picture.save(file);
}

MultiEditLineEdit* makeLength(QWidget* parent)
{
    return MultiEditLineEdit::create(parent, QString(),
                                     new UnitValidator(v1::get_active_input_context(), lengths), 0,
                                     ExpandRight);
}

/// What a line edit looks like with one value, with several, and with a text that is not valid.
bool takeFieldStates(const QString& file)
{
    QWidget window;
    PropertyGridLayouter form;
    form.onCreate(&window);
    auto* single = makeLength(&window);
    auto* varying = makeLength(&window);
    auto* invalid = makeLength(&window);
    form.onAdd(single, QStringLiteral("One beam"));
    form.onAdd(varying, QStringLiteral("Two beams that differ"));
    form.onAdd(invalid, QStringLiteral("A text that is no length"));
    form.onFinish();
    single->setValue(IConverter::quantity{lengths, 4.0});
    varying->forceVaries();
    QTest::keyClicks(&invalid->edit(), QStringLiteral("4.0 kN"));
    window.resize(380, window.sizeHint().height());
    return take(window, file);
}

/// The two windows below an edit while the user types.
bool takePopups(const QString& file)
{
    QWidget window;
    window.move(40, 40);
    PropertyGridLayouter form;
    form.onCreate(&window);
    auto* share = SimpleLineEdit::create(
        &window, QString(), new DoubleEditValidator(0, 0.0, 100.0, false), 0, ExpandRight);
    auto validator = boost::make_shared<DoubleEditValidator>(1, 0.0, 90.0, false);
    validator->setEditHintFunction(
        [](const QString&) { return QStringLiteral("0 to 90 degrees"); });
    auto* angle = SimpleLineEdit::create(&window, QString(), validator, 0, ExpandRight);
    angle->setValueHistory(zel::ValueHistory::create(std::wstring(), L"angle"));
    for (const double value : {30.0, 45.0, 60.0}) {
        angle->setValue(value);
        angle->addCurrentValueToValueHistory();
    }
    form.onAdd(angle, QStringLiteral("Angle"));
    form.onAdd(share, QStringLiteral("Share"));
    form.onFinish();
    window.resize(300, 120);
    window.show();
    QApplication::setActiveWindow(&window);
    angle->edit().setFocus();
    angle->selectAll();
    QTest::keyClicks(&angle->edit(), QStringLiteral("3"));
    return take(window, file);
}

template <class T>
bool equal(const boost::any& a, const boost::any& b)
{
    return boost::any_cast<T>(a) == boost::any_cast<T>(b);
}

/// The choice controls, half of them with values that differ.
bool takeChoices(const QString& file)
{
    QWidget window;
    auto* grid = new QGridLayout(&window);
    const NamedValueList sections{{QStringLiteral("IPE 200"), 0},
                                  {QStringLiteral("IPE 300"), 1},
                                  {QStringLiteral("HEB 200"), 2}};
    const auto less = [](const boost::any& a, const boost::any& b) {
        return boost::any_cast<int>(a) < boost::any_cast<int>(b);
    };
    for (int column = 0; column < 2; ++column) {
        auto* box = MultiEditEnumBox::create(&window, QStringLiteral("Section"), equal<int>);
        box->setValues(sections);
        auto* group = MultiEditRadioButtonGroup::create(
            QStringLiteral("Material"),
            {{QStringLiteral("Steel"), 0}, {QStringLiteral("Timber"), 1}}, equal<int>, less,
            &window);
        auto* checks = new QGroupBox(QStringLiteral("Releases"), &window);
        VBoxLayouter layouter;
        layouter.onCreate(checks);
        auto* releases = new MultiEditCheckBoxGroup(
            checks, layouter,
            {QStringLiteral("Start"), QStringLiteral("End"), QStringLiteral("Torsion")}, {});
        releases->setParent(checks);
        layouter.onFinish();
        for (int object = 0; object <= column; ++object) {
            box->readValue(object);
            group->readValue(object);
            for (std::size_t i = 0; i < releases->size(); ++i) {
                releases->readValue(i, i == 0 || (i == 1 && object == 0));
            }
        }
        releases->onEndRead();
        grid->addWidget(box, 0, column);
        grid->addWidget(group, 1, column);
        grid->addWidget(checks, 2, column);
    }
    return take(window, file);
}

/// A table of coordinates with an editor open.
bool takeTable(const QString& file)
{
    QStandardItemModel model(4, 2);
    model.setHorizontalHeaderLabels({QStringLiteral("x"), QStringLiteral("y")});
    const IValidator::pointer validator(new UnitValidator(v1::get_active_input_context(), lengths));
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 2; ++column) {
            const boost::any value = IConverter::quantity{lengths, 3.0 * row * (1 - 0.5 * column)};
            const QModelIndex index = model.index(row, column);
            model.setData(index, QVariant::fromValue(value), EditRole);
            model.setData(index, validator->reformatForDisplay(value, {}), DisplayRole);
        }
    }
    detail::CppDbTableViewBase table(
        &model, [&](int) { return validator; }, nullptr);
    LineEditItemDelegate delegate(validator, &table);
    table.setItemDelegate(&delegate);
    table.resize(260, 160);
    table.show();
    table.setCurrentIndex(model.index(1, 0));
    table.edit(model.index(1, 0));
    return take(table, file);
}

/// The canvas with rulers, a few members and their grips.
bool takeCanvas(const QString& file)
{
    graphics::EditorView view;
    view.setTitle(QStringLiteral("Front"));
    view.setRulers(true, true);
    const QPolygonF frame{{{-60, 60}, {-60, -20}, {0, -50}, {60, -20}, {60, 60}}};
    for (int i = 0; i + 1 < frame.size(); ++i) {
        QPen pen(Qt::darkBlue, 3);
        pen.setCosmetic(true);
        view.scene()->addLine(QLineF(frame[i], frame[i + 1]), pen);
    }
    for (const QPointF& node : frame) {
        auto grip = std::make_unique<ed2d::GripItem>();
        grip->setPos(node);
        grip->m_highlighted = node == frame[2];
        view.scene()->addItem(grip.release());
    }
    view.resize(460, 300);
    view.show();
    view.setCenter({0, 5}, true);
    view.scale(1.6, 1.6);
    return take(view, file);
}

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(53, 53, 53));
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(53, 53, 53));
    palette.setColor(QPalette::ToolTipBase, QColor(53, 53, 53));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Button, QColor(53, 53, 53));
    palette.setColor(QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::black);
    return palette;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argc, argv);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    if (argc == 3 && std::strcmp(argv[2], "dark") == 0) {
        QApplication::setPalette(darkPalette());
        --argc;
    }
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "usage: take_pictures FOLDER [dark]\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const bool taken = takeFieldStates(folder.filePath(QStringLiteral("field_states.png"))) &&
                       takePopups(folder.filePath(QStringLiteral("popups.png"))) &&
                       takeChoices(folder.filePath(QStringLiteral("choices.png"))) &&
                       takeTable(folder.filePath(QStringLiteral("table.png"))) &&
                       takeCanvas(folder.filePath(QStringLiteral("canvas.png")));
    return taken ? 0 : 1;
}
