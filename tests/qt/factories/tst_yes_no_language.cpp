#include "qt/inc/controls/enum_box.h"
#include "qt/inc/factories.h"
#include "tests/helpers/checked_test.h"

#include <QCoreApplication>
#include <QTranslator>

#include <boost/any.hpp>

#include <memory>
#include <typeindex>

using namespace zel::qt;

namespace {

/// Puts a mark before "Yes" and "No" as the lists of the factories ask for them.
class MarkingTranslator : public QTranslator
{
public:
    explicit MarkingTranslator(const QString& mark)
        : m_mark(mark)
    {}

    bool isEmpty() const override
    {
        return false;
    }

    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override
    {
        const bool asked = qstrcmp(context, "QObject") == 0 &&
                           qstrcmp(disambiguation, "property_yes_no") == 0 && n == -1;
        return asked ? m_mark + QString::fromLatin1(sourceText) : QString();
    }

private:
    QString m_mark;
};

} // namespace

/// A process of its own: what is tested is the first use.
class YesNoLanguageTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachListKeepsTheLanguageOfItsFirstUse();
};

void YesNoLanguageTest::eachListKeepsTheLanguageOfItsFirstUse()
{
    const DefaultValidatorFactory validators;
    const DefaultEditorFactory editors(nullptr);
    const auto validatorText = [&validators](bool value) {
        return validators.create({typeid(bool), ""}, HintTree())->reformat(value, {});
    };
    const auto editorText = [&editors](bool value) {
        const std::unique_ptr<QWidget> box(editors.create("yes_no", HintTree())->widget);
        return static_cast<MultiEditEnumBox*>(box.get())->getNameForValue(value);
    };

    MarkingTranslator first("1 ");
    MarkingTranslator second("2 ");
    QVERIFY(QCoreApplication::installTranslator(&first));
    QCOMPARE(validatorText(true), QString("1 Yes"));
    QCOMPARE(validatorText(false), QString("1 No"));

    QVERIFY(QCoreApplication::removeTranslator(&first));
    QVERIFY(QCoreApplication::installTranslator(&second));
    QCOMPARE(validatorText(true), QString("1 Yes"));
    QCOMPARE(editorText(true), QString("2 Yes"));

    QVERIFY(QCoreApplication::removeTranslator(&second));
    QCOMPARE(editorText(false), QString("2 No"));
}

QTEST_MAIN(YesNoLanguageTest)
#include "tst_yes_no_language.moc"
