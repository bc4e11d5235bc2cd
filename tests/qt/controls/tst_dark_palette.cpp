#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>

#include <algorithm>
#include <memory>

using namespace zel::qt;

namespace {

/// The range of lightness in a picture: text that can be read spans a good part of it.
int contrastOf(QWidget& widget, const QRect& part)
{
    const QImage image = widget.grab(part.adjusted(4, 3, -4, -3)).toImage();
    int darkest = 255;
    int lightest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int lightness = qGray(image.pixel(x, y));
            darkest = std::min(darkest, lightness);
            lightest = std::max(lightest, lightness);
        }
    }
    return lightest - darkest;
}

int contrastOf(QWidget& widget)
{
    return contrastOf(widget, widget.rect());
}

} // namespace

/// The sheets of the controls fix some colours. Under a dark palette nothing may become unreadable.
class DarkPaletteTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void textCanBeRead_data();
    void textCanBeRead();
    void borderlessLookTakenOff();
    void popupsCanBeRead();
    void entriesOnAColourCanBeRead_data();
    void entriesOnAColourCanBeRead();
    void aLightPaletteIsLeftAlone();

private:
    QPalette m_light;
};

void DarkPaletteTest::init()
{
    CheckedTest::init();
    m_light = QApplication::palette();
    QPalette dark = m_light;
    dark.setColor(QPalette::Window, QColor(53, 53, 53));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Button, QColor(53, 53, 53));
    dark.setColor(QPalette::ButtonText, Qt::white);
    QApplication::setPalette(dark);
}

void DarkPaletteTest::cleanup()
{
    QApplication::setPalette(m_light);
    CheckedTest::cleanup();
}

void DarkPaletteTest::textCanBeRead_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<QString>("typed");
    QTest::newRow("untouched") << 0U << QString();
    QTest::newRow("good text") << 0U << QStringLiteral("888");
    QTest::newRow("bad text") << 0U << QStringLiteral("x88");
    QTest::newRow("borderless, untouched") << 1U << QString();
    QTest::newRow("borderless, good text") << 1U << QStringLiteral("888");
    QTest::newRow("borderless, bad text") << 1U << QStringLiteral("x88");
}

void DarkPaletteTest::textCanBeRead()
{
    QFETCH(unsigned int, flags);
    QFETCH(QString, typed);
    QWidget window;
    auto* field = SimpleLineEdit::create(&window, QStringLiteral("Length"), new DoubleEditValidator,
                                         flags, ExpandRight);
    field->setUnitString(QStringLiteral("mm"));
    field->resize(220, 28);
    field->setValue(888.0);
    if (!typed.isEmpty()) {
        field->selectAll();
        QTest::keyClicks(&field->edit(), typed);
    }
    QVERIFY(contrastOf(field->edit()) > 100);
    for (QLabel* label : field->findChildren<QLabel*>()) {
        if (label->isVisibleTo(field)) {
            QVERIFY2(contrastOf(*label) > 100, qPrintable(label->text()));
        }
    }
}

void DarkPaletteTest::borderlessLookTakenOff()
{
    // A host takes the sheets of a table cell off for its form.
    QWidget window;
    auto* field =
        SimpleLineEdit::create(&window, QString(), new DoubleEditValidator, 1, ExpandRight);
    field->resize(220, 28);
    field->setStyleSheet(QString());
    field->edit().setStyleSheet(QString());
    field->setValue(888.0);
    field->onTextEdited(QStringLiteral("888"));
    window.show();
    QVERIFY(contrastOf(field->edit()) > 100);
    field->onTextEdited(QStringLiteral("x88"));
    QVERIFY(contrastOf(field->edit()) > 60);
    field->onTextEdited(QStringLiteral("888"));
    QVERIFY(contrastOf(field->edit()) > 100);
}

void DarkPaletteTest::popupsCanBeRead()
{
    QWidget window;
    auto* field =
        SimpleLineEdit::create(&window, QString(), new DoubleEditValidator, 0, ExpandRight);
    auto* hint = field->findChild<detail::EditHintPopup*>();
    hint->setHint(QStringLiteral("0 to 90"));
    QVERIFY(contrastOf(*hint) > 100);
    field->setValueHistory(zel::ValueHistory::create(std::wstring(), L"dark palette"));
    field->setValue(888.0);
    field->addCurrentValueToValueHistory();
    auto* history = field->findChild<detail::HistoryPopup*>();
    history->show();
    QVERIFY(contrastOf(*history->findChild<QListWidget*>()) > 100);
}

void DarkPaletteTest::entriesOnAColourCanBeRead_data()
{
    QTest::addColumn<QColor>("background");
    QTest::addColumn<bool>("dark");
    for (const bool dark : {false, true}) {
        const auto row = [dark](const char* name, const QColor& background) {
            QTest::addRow("%s, %s palette", name, dark ? "dark" : "light") << background << dark;
        };
        row("pale yellow", QColor(255, 255, 160));
        row("full yellow", QColor(255, 255, 0));
        row("full blue", QColor(0, 0, 255));
        row("dark red", QColor(90, 0, 0));
        row("a breath of red", QColor(255, 0, 0, 30));
    }
}

void DarkPaletteTest::entriesOnAColourCanBeRead()
{
    QFETCH(QColor, background);
    QFETCH(bool, dark);
    if (!dark) {
        QApplication::setPalette(m_light);
    }
    QWidget window;
    auto* box = MultiEditEnumBox::create(&window, QString(),
                                         [](const boost::any&, const boost::any&) { return true; });
    box->setValues({{QStringLiteral("888"), 1}, {QStringLiteral("888"), 2}}, {},
                   {QColor(), background});
    window.show();
    box->findChild<QComboBox*>()->showPopup();
    QAbstractItemView* list = box->findChild<QComboBox*>()->view();
    QTRY_VERIFY(list->isVisible());
    const QRect entry = list->visualRect(list->model()->index(1, 0));
    QVERIFY(contrastOf(*list->viewport(), entry) > 100);
}

void DarkPaletteTest::aLightPaletteIsLeftAlone()
{
    QPalette blue = m_light;
    blue.setColor(QPalette::Text, QColor(0, 0, 90));
    QApplication::setPalette(blue);
    QWidget window;
    auto* field =
        SimpleLineEdit::create(&window, QString(), new DoubleEditValidator, 1, ExpandRight);
    QCOMPARE(field->palette().color(QPalette::Text), QColor(0, 0, 90));
    QCOMPARE(field->findChild<detail::EditHintPopup*>()->palette().color(QPalette::Text),
             QColor(0, 0, 90));
}

QTEST_MAIN(DarkPaletteTest)
#include "tst_dark_palette.moc"
