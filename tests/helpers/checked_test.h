#pragma once

#include "platform/smart_assert.h"

#include <QObject>
#include <QStringList>
#include <QTest>

#include <vector>

namespace zel::test {

/// The base of every test class. It catches the reports of assertions and the warnings of Qt; what
/// a test function has not taken by its end fails it.
///
/// A class with an init() or cleanup() of its own calls the one here.
class CheckedTest : public QObject
{
    Q_OBJECT
public:
    CheckedTest();
    ~CheckedTest() override;

protected:
    /// The assertion reports since the last call, in order; takes them.
    std::vector<smartassert::Report> takeReports();
    /// The expressions of takeReports().
    QStringList takeExpressions();
    /// The warnings and worse of Qt since the last call, in order; takes them.
    QStringList takeWarnings();

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    smartassert::ReportHandler m_previousReportHandler;
    QtMessageHandler m_previousMessageHandler = nullptr;
    std::vector<smartassert::Report> m_reports;
};

} // namespace zel::test
