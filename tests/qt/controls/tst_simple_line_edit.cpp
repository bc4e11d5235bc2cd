#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/line_edit_form.h"

#include <QApplication>
#include <QLabel>
#include <QMetaMethod>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOptionButton>

#include <boost/make_shared.hpp>

#include <limits>
#include <memory>

using namespace zel::qt;
using zel::test::NumberValidator;

class SimpleLineEditTest : public zel::test::CheckedTest, private zel::test::LineEditForm
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void metaObject();
    void newControlIsNotValid();
    void partsInOrder_data();
    void partsInOrder();
    void lookOfTheFlags_data();
    void lookOfTheFlags();
    void captionIsPlainText();
    void rawValidatorIsOwned();
    void sharedValidatorIsShared();
    void unitString();
    void minimumWidthFactorHasNoEffect_data();
    void minimumWidthFactorHasNoEffect();
    void sizeHints_data();
    void sizeHints();
    void forwardsToTheEdit();
    void dotsButton();
    void dotsButtonMayDeleteTheField();
    void focusGoesToTheEdit();
    void paintsAButtonOfNoSize();
};

void SimpleLineEditTest::init()
{
    CheckedTest::init();
    QVERIFY(open());
}

void SimpleLineEditTest::cleanup()
{
    close();
    CheckedTest::cleanup();
}

void SimpleLineEditTest::metaObject()
{
    const QMetaObject& meta = SimpleLineEdit::staticMetaObject;
    QCOMPARE(meta.className(), "zel::qt::SimpleLineEdit");
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char* const kind = method.methodType() == QMetaMethod::Signal ? "signal" : "slot";
        const char* const access = method.access() == QMetaMethod::Public ? "public" : "private";
        methods << QStringLiteral("%1 %2 %3")
                       .arg(QLatin1String(access), QLatin1String(kind),
                            QString::fromLatin1(method.methodSignature()));
    }
    QCOMPARE(methods,
             (QStringList{"public signal valueChanged()", "public slot onEditingFinished()",
                          "public slot onTextEdited(QString)", "private slot onClickedButton()"}));
}

void SimpleLineEditTest::newControlIsNotValid()
{
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, QString(), new NumberValidator(NumberValidator::EmptyAsZero), 0, ExpandRight));
    QVERIFY(!field->isValueValid());
    QCOMPARE(field->edit().text(), QString());
    QCOMPARE(field->edit().styleSheet(), QString());
    QVERIFY(!field->valueHistory());
    QCOMPARE(boost::any_cast<double>(field->getValue()), 0.0);
    QVERIFY(!field->isValueValid());
}

void SimpleLineEditTest::partsInOrder_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("downwards");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("withButton");
    QTest::newRow("side by side") << int(ExpandRight) << false << "Length" << true;
    QTest::newRow("below one another") << int(ExpandDown) << true << "Length" << true;
    QTest::newRow("unknown direction") << 7 << true << "Length" << true;
    QTest::newRow("no caption") << int(ExpandRight) << false << "" << true;
    QTest::newRow("no button") << int(ExpandRight) << false << "Length" << false;
}

void SimpleLineEditTest::partsInOrder()
{
    QFETCH(int, direction);
    QFETCH(bool, downwards);
    QFETCH(QString, caption);
    QFETCH(bool, withButton);
    const boost::function<void()> onClicked =
        withButton ? boost::function<void()>([] {}) : boost::function<void()>();
    const std::unique_ptr<SimpleLineEdit> field(
        SimpleLineEdit::create(nullptr, caption, boost::make_shared<NumberValidator>(), onClicked,
                               0, static_cast<ExpandDirection>(direction)));
    QLayout* const layout = field->layout();
    QCOMPARE(qobject_cast<QVBoxLayout*>(layout) != nullptr, downwards);
    QCOMPARE(qobject_cast<QHBoxLayout*>(layout) != nullptr, !downwards);
    QCOMPARE(layout->contentsMargins(), QMargins(2, 2, 2, 2));
    QStringList parts;
    for (int i = 0; i < layout->count(); ++i) {
        const QWidget* const part = layout->itemAt(i)->widget();
        parts << QString::fromLatin1(part->metaObject()->className());
        QCOMPARE(part->parentWidget(), field.get());
    }
    QStringList expected{"zel::qt::detail::LineEditImpl", "ZEL_QT_Label"};
    if (!caption.isEmpty()) {
        expected.prepend(QStringLiteral("ZEL_QT_Label"));
        QCOMPARE(qobject_cast<QLabel*>(layout->itemAt(0)->widget())->text(), caption);
    }
    if (withButton) {
        expected.append(QStringLiteral("ZEL_QT_PushButton"));
        const auto* button = field->findChild<QPushButton*>();
        QCOMPARE(button->text(), QStringLiteral("..."));
        QCOMPARE(button->minimumSize(), QSize(20, 20));
        QCOMPARE(button->maximumSize(), QSize(20, 20));
    }
    QCOMPARE(parts, expected);
    QVERIFY(layout->itemAt(expected.indexOf(QStringLiteral("zel::qt::detail::LineEditImpl")) + 1)
                ->widget()
                ->isHidden());
    QCOMPARE(field->focusProxy(), &field->edit());
    QCOMPARE(field->edit().accessibleName(), caption);
}

void SimpleLineEditTest::lookOfTheFlags_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("borderless");
    QTest::newRow("none") << 0U << false;
    QTest::newRow("borderless") << 1U << true;
    QTest::newRow("bits without a meaning") << 6U << false;
    QTest::newRow("all bits") << ~0U << true;
}

void SimpleLineEditTest::lookOfTheFlags()
{
    QFETCH(unsigned int, flags);
    QFETCH(bool, borderless);
    const std::unique_ptr<SimpleLineEdit> field(
        SimpleLineEdit::create(nullptr, QString(), new NumberValidator, flags, ExpandRight));
    QCOMPARE(field->edit().styleSheet(),
             borderless ? QStringLiteral("QLineEdit { border:0; background-color:white; }")
                        : QString());
    QCOMPARE(field->styleSheet(),
             borderless ? QStringLiteral("* { background-color:white; }") : QString());
}

void SimpleLineEditTest::captionIsPlainText()
{
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, QStringLiteral("<b>x</b>"), new NumberValidator, 0, ExpandRight));
    const auto labels = field->findChildren<ZEL_QT_Label*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(labels.size(), 2);
    QCOMPARE(labels[0]->text(), QStringLiteral("<b>x</b>"));
    QCOMPARE(labels[0]->textFormat(), Qt::PlainText);
}

void SimpleLineEditTest::rawValidatorIsOwned()
{
    bool destroyed = false;
    auto* validator = new NumberValidator;
    validator->destroyed = &destroyed;
    auto* field = SimpleLineEdit::create(m_window.get(), QString(), validator, 0, ExpandRight);
    QCOMPARE(field->parentWidget(), m_window.get());
    QVERIFY(!destroyed);
    delete field;
    QVERIFY(destroyed);
}

void SimpleLineEditTest::sharedValidatorIsShared()
{
    const auto validator = boost::make_shared<NumberValidator>();
    auto* a = SimpleLineEdit::create(nullptr, QString(), validator, 0, ExpandRight);
    auto* b = SimpleLineEdit::create(nullptr, QString(), validator, {}, 0, ExpandRight);
    QCOMPARE(validator.use_count(), 3L);
    delete a;
    b->setValue(1.0);
    QVERIFY(b->isValueValid());
    delete b;
    QCOMPARE(validator.use_count(), 1L);
}

void SimpleLineEditTest::unitString()
{
    const auto* unit = qobject_cast<QLabel*>(m_field->layout()->itemAt(2)->widget());
    const QWidget* const field = m_field;
    const int plain = field->sizeHint().width();
    QVERIFY(unit->isHidden());
    m_field->setUnitString(QStringLiteral("kN"));
    QVERIFY(!unit->isHidden());
    QCOMPARE(unit->text(), QStringLiteral("[kN]"));
    const int withUnit = field->sizeHint().width();
    QVERIFY(withUnit > plain);
    m_field->setUnitString(QString());
    QVERIFY(unit->isHidden());
    QCOMPARE(unit->text(), QStringLiteral("[kN]"));
    QCOMPARE(field->sizeHint().width(), withUnit);
    m_field->setUnitString(QStringLiteral("m"));
    QVERIFY(!unit->isHidden());
    QCOMPARE(unit->text(), QStringLiteral("[m]"));
    QCOMPARE(unit->textFormat(), Qt::PlainText);
}

void SimpleLineEditTest::minimumWidthFactorHasNoEffect_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("negative") << -3.0;
    QTest::newRow("half") << 0.5;
    QTest::newRow("fifty") << 50.0;
    QTest::newRow("huge") << 1e300;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
}

void SimpleLineEditTest::minimumWidthFactorHasNoEffect()
{
    QFETCH(double, factor);
    const QWidget* const field = m_field;
    const QSize hint = field->sizeHint();
    const QSize minimum = field->minimumSizeHint();
    m_field->setMinimumWidthFactor(factor);
    QCOMPARE(field->sizeHint(), hint);
    QCOMPARE(field->minimumSizeHint(), minimum);
}

void SimpleLineEditTest::sizeHints_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("withButton");
    QTest::newRow("edit alone") << ""
                                << "" << false;
    QTest::newRow("caption") << "Length"
                             << "" << false;
    QTest::newRow("unit") << ""
                          << "kN" << false;
    QTest::newRow("caption and unit") << "Length"
                                      << "kN" << false;
    QTest::newRow("button does not count") << "Length"
                                           << "kN" << true;
}

void SimpleLineEditTest::sizeHints()
{
    QFETCH(QString, caption);
    QFETCH(QString, unit);
    QFETCH(bool, withButton);
    const boost::function<void()> onClicked =
        withButton ? boost::function<void()>([] {}) : boost::function<void()>();
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, caption, boost::make_shared<NumberValidator>(), onClicked, 0, ExpandRight));
    field->setUnitString(unit);
    const QWidget* const widget = field.get();
    const auto labels = field->findChildren<ZEL_QT_Label*>(QString(), Qt::FindDirectChildrenOnly);
    QSize hint(int(field->edit().sizeHint().width() * 0.6) + 12, field->edit().sizeHint().height());
    QSize minimum(int(field->edit().minimumSizeHint().width() * 0.6) + 12,
                  field->edit().minimumSizeHint().height());
    for (const ZEL_QT_Label* label : labels) {
        if (!label->text().isEmpty()) {
            hint.rwidth() += label->sizeHint().width();
            minimum.rwidth() += label->minimumSizeHint().width();
        }
    }
    QCOMPARE(widget->sizeHint(), hint);
    QCOMPARE(widget->minimumSizeHint(), minimum);
}

void SimpleLineEditTest::forwardsToTheEdit()
{
    m_field->setEditMaximumWidth(77);
    QCOMPARE(m_edit->maximumWidth(), 77);
    m_field->setMaxLength(5);
    QCOMPARE(m_edit->maxLength(), 5);
    m_field->setReadOnly(true);
    QVERIFY(m_edit->isReadOnly());
    m_field->setReadOnly(false);
    QVERIFY(!m_edit->isReadOnly());
    m_field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(int(m_edit->alignment()), int(Qt::AlignRight | Qt::AlignVCenter));
    m_edit->setText(QStringLiteral("12"));
    m_field->selectAll();
    QCOMPARE(m_edit->selectedText(), QStringLiteral("12"));
}

void SimpleLineEditTest::dotsButton()
{
    int clicks = 0;
    auto* field = SimpleLineEdit::create(
        m_window.get(), QString(), boost::make_shared<NumberValidator>(), [&clicks] { ++clicks; },
        0, ExpandRight);
    m_window->layout()->addWidget(field);
    field->show();
    const QSignalSpy changed(field, &SimpleLineEdit::valueChanged);
    auto* button = field->findChild<QPushButton*>();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicks, 1);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(clicks, 2);
    QCOMPARE(changed.count(), 0);
    QVERIFY(m_field->findChildren<QPushButton*>().isEmpty());
    // The slot without a function has nothing to call.
    QVERIFY(QMetaObject::invokeMethod(m_field, "onClickedButton"));
}

void SimpleLineEditTest::dotsButtonMayDeleteTheField()
{
    QPointer<SimpleLineEdit> field;
    auto own = std::make_shared<int>();
    const std::weak_ptr<int> owned = own;
    long ownersLeft = 0;
    field = SimpleLineEdit::create(
        nullptr, QString(), boost::make_shared<NumberValidator>(),
        [&, own] {
            // What the function holds has to outlast the field, for as long as it runs.
            const std::weak_ptr<int>& seen = owned;
            long& result = ownersLeft;
            delete field;
            result = seen.use_count();
        },
        0, ExpandRight);
    own.reset();
    QTest::mouseClick(field->findChild<QPushButton*>(), Qt::LeftButton);
    QVERIFY(!field);
    QCOMPARE(ownersLeft, 1L);
}

void SimpleLineEditTest::focusGoesToTheEdit()
{
    m_edit->setText(QStringLiteral("12"));
    m_other->setFocus();
    QVERIFY(m_other->edit().hasFocus());
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(m_field, &in);
    QVERIFY(m_edit->hasFocus());
    QVERIFY(!m_edit->hasSelectedText()); // as it would be for the reason of the field's own event
    QFocusEvent out(QEvent::FocusOut);
    m_changed->clear();
    QApplication::sendEvent(m_field, &out); // that of the field itself, not of its edit
    QVERIFY(m_edit->hasFocus());
    QCOMPARE(changes(), 0);
}

void SimpleLineEditTest::paintsAButtonOfNoSize()
{
    class Witness : public QProxyStyle
    {
    public:
        void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const override
        {
            const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            if (button != nullptr && qobject_cast<const SimpleLineEdit*>(widget) != nullptr &&
                (element == CE_PushButton || element == CE_PushButtonLabel)) {
                if (!insideButton) {
                    drawn << QStringLiteral("%1 %2 %3x%4")
                                 .arg(element)
                                 .arg(button->text)
                                 .arg(button->rect.width())
                                 .arg(button->rect.height());
                }
                insideButton = true;
                QProxyStyle::drawControl(element, option, painter, widget);
                insideButton = false;
                return;
            }
            QProxyStyle::drawControl(element, option, painter, widget);
        }
        mutable QStringList drawn;
        mutable bool insideButton = false;
    };
    Witness style;
    const std::unique_ptr<SimpleLineEdit> plain(
        SimpleLineEdit::create(nullptr, QString(), new NumberValidator, 0, ExpandRight));
    const std::unique_ptr<SimpleLineEdit> dotted(SimpleLineEdit::create(
        nullptr, QString(), boost::make_shared<NumberValidator>(), [] {}, 0, ExpandRight));
    for (SimpleLineEdit* field : {plain.get(), dotted.get()}) {
        field->setStyle(&style);
        field->resize(200, 30);
    }
    plain->grab();
    QCOMPARE(style.drawn, QStringList());
    QImage shown(200, 30, QImage::Format_RGB32);
    shown.fill(Qt::magenta);
    {
        QPainter painter(&shown);
        dotted->render(&painter, QPoint(), QRegion(), QWidget::RenderFlags());
    }
    QCOMPARE(style.drawn,
             (QStringList{QStringLiteral("%1 ... 0x0").arg(QStyle::CE_PushButton),
                          QStringLiteral("%1 ... 0x0").arg(QStyle::CE_PushButtonLabel)}));
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            QCOMPARE(shown.pixelColor(x, y), QColor(Qt::magenta));
        }
    }
    plain->setStyle(nullptr);
    dotted->setStyle(nullptr);
}

QTEST_MAIN(SimpleLineEditTest)
#include "tst_simple_line_edit.moc"
