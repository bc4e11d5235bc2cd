#include "tests/helpers/checked_test.h"

#include <utility>

namespace zel::test {
namespace {

QtMessageHandler outerMessageHandler = nullptr;
QStringList caughtWarnings;

void catchMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg) {
        if (outerMessageHandler != nullptr) {
            outerMessageHandler(type, context, text);
        }
        return;
    }
    if (text.startsWith(QLatin1String("This plugin does not support "))) {
        return; // what the off-screen platform lacks, raising windows say, is no fault of ours
    }
    caughtWarnings.append(text);
}

} // namespace

CheckedTest::CheckedTest() = default;
CheckedTest::~CheckedTest() = default;

std::vector<smartassert::Report> CheckedTest::takeReports()
{
    return std::exchange(m_reports, {});
}

QStringList CheckedTest::takeExpressions()
{
    QStringList expressions;
    for (const smartassert::Report& report : takeReports()) {
        expressions.append(QString::fromStdString(report.expression));
    }
    return expressions;
}

QStringList CheckedTest::takeWarnings()
{
    return std::exchange(caughtWarnings, {});
}

void CheckedTest::init()
{
    m_reports.clear();
    caughtWarnings.clear();
    m_previousReportHandler = smartassert::setReportHandler(
        [this](const smartassert::Report& report) { m_reports.push_back(report); });
    m_previousMessageHandler = qInstallMessageHandler(catchMessage);
    outerMessageHandler = m_previousMessageHandler;
}

void CheckedTest::cleanup()
{
    qInstallMessageHandler(m_previousMessageHandler);
    smartassert::setReportHandler(std::move(m_previousReportHandler));
    const QStringList expressions = takeExpressions();
    const QStringList warnings = takeWarnings();
    QVERIFY2(expressions.isEmpty(),
             qPrintable(QStringLiteral("assertion reports that the test did not name: ") +
                        expressions.join(QStringLiteral(" | "))));
    QVERIFY2(warnings.isEmpty(),
             qPrintable(QStringLiteral("warnings that the test did not name: ") +
                        warnings.join(QStringLiteral(" | "))));
}

} // namespace zel::test
