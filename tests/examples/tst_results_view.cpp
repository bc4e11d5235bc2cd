#include "examples/frame_editor/member_results.h"
#include "examples/frame_editor/results_view.h"
#include "examples/frame_editor/view_settings.h"
#include "tests/examples/editor_stage.h"
#include "tests/helpers/checked_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>

using namespace frame_editor;
using zel::test::EditorStage;

namespace {

ResultsView& view(EditorStage& stage)
{
    return *stage.window.findChild<ResultsView*>();
}

QLabel& value(EditorStage& stage, const char* id)
{
    return *stage.window.findChild<QLabel*>(QStringLiteral("result_") + QLatin1String(id));
}

QCheckBox& box(EditorStage& stage, const char* label)
{
    for (auto* found : view(stage).findChildren<QCheckBox*>()) {
        if (found->text() == QLatin1String(label)) {
            return *found;
        }
    }
    throw std::runtime_error(label);
}

void click(QCheckBox& box)
{
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Space);
}

} // namespace

class TestResultsView : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void numbers();
    void loadDirections_data();
    void loadDirections();
    void shown();
    void follows();
    void chosen();
    void all();
    void storedState();
    void storedBetweenStarts();
};

void TestResultsView::numbers()
{
    // C1: HEB 300 of 7 m, S355, 3.6 kN/m at right angles.
    EditorStage stage;
    const FrameModel& model = stage.document.model();
    const auto result = [&model](const char* id, int member) {
        for (const MemberResult& known : memberResults()) {
            if (known.id == QLatin1String(id)) {
                return known.value(model, model.members.at(std::size_t(member)));
            }
        }
        return std::nan("");
    };
    QCOMPARE(result("length", 0), 7.0);
    QCOMPARE(result("mass", 0), 7.0 * 0.01491 * 7.85);
    QCOMPARE(result("load", 0), 25.2);
    QCOMPARE(result("moment", 0), 3.6 * 49 / 8);
    QCOMPARE(result("buckling", 0), M_PI * M_PI * 2.1e8 * 2.517e-4 / 49);
    QCOMPARE(result("curvature", 0), 0.0);
    // R2: 15 K on 450 mm.
    QCOMPARE(result("curvature", 3), 1.2e-5 * 15 / 0.45);
}

void TestResultsView::loadDirections_data()
{
    QTest::addColumn<QString>("direction");
    QTest::addColumn<double>("load");
    QTest::addColumn<double>("moment");
    // R2 from (2.4, 7.2) to (12, 8): 9.6 m in plan.
    const double length = std::hypot(9.6, 0.8);
    QTest::newRow("vertical") << "vertical" << 2 * length << 2 * length * 9.6 / 8;
    QTest::newRow("projected") << "projected" << 2 * 9.6 << 2 * 9.6 * 9.6 / 8;
    QTest::newRow("normal") << "normal" << 2 * length << 2 * length * length / 8;
}

void TestResultsView::loadDirections()
{
    QFETCH(QString, direction);
    QFETCH(double, load);
    QFETCH(double, moment);
    EditorStage stage;
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("line_load")), {{3, 2.0}});
    stage.document.setMemberValues(*findMemberProperty(QStringLiteral("load_direction")),
                                   {{3, direction}});
    const Member& member = stage.member(3);
    QCOMPARE(memberResults().at(2).value(stage.document.model(), member), load);
    QCOMPARE(memberResults().at(3).value(stage.document.model(), member), moment);
}

void TestResultsView::shown()
{
    EditorStage stage;
    QCOMPARE(value(stage, "length").text(), QString());
    stage.select({0});
    QCOMPARE(value(stage, "length").text(), QStringLiteral("7.000 m"));
    QCOMPARE(value(stage, "load").text(), QStringLiteral("25.2 kN"));
    stage.select({0, 1});
    QCOMPARE(value(stage, "length").text(), QStringLiteral("7.000 m"));
    QCOMPARE(value(stage, "load").text(), QStringLiteral("*VARIES*"));
}

void TestResultsView::follows()
{
    EditorStage stage;
    stage.select({0});
    stage.enter("line_load", QStringLiteral("1"));
    QCOMPARE(value(stage, "load").text(), QStringLiteral("7.0 kN"));
    stage.units.setColumn(8);
    QCOMPARE(value(stage, "length").text(), QStringLiteral("22.97 ft"));
}

void TestResultsView::chosen()
{
    EditorStage stage;
    stage.select({0});
    QSignalSpy changed(&view(stage), &ResultsView::stateChanged);
    QVERIFY(value(stage, "mass").isVisible());
    QVERIFY(box(stage, "All").isChecked());
    click(box(stage, "Mass"));
    QVERIFY(!value(stage, "mass").isVisible());
    QVERIFY(value(stage, "length").isVisible());
    QCOMPARE(box(stage, "All").checkState(), Qt::PartiallyChecked);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(stage.steps(), 0);
}

void TestResultsView::all()
{
    EditorStage stage;
    QSignalSpy changed(&view(stage), &ResultsView::stateChanged);
    click(box(stage, "All"));
    for (const MemberResult& result : memberResults()) {
        QVERIFY(!value(stage, result.id.toUtf8().constData()).isVisible());
    }
    QCOMPARE(changed.count(), 1);
    click(box(stage, "All"));
    for (const MemberResult& result : memberResults()) {
        QVERIFY(value(stage, result.id.toUtf8().constData()).isVisible());
    }
    QCOMPARE(changed.count(), 2);
}

void TestResultsView::storedState()
{
    EditorStage stage;
    click(box(stage, "Load"));
    const zel::KeyValueStorage stored = view(stage).state();
    QCOMPARE(stored.values->size(), memberResults().size());
    QCOMPARE(boost::any_cast<bool>(stored.values->at("results/2")), false);
    QCOMPARE(boost::any_cast<bool>(stored.values->at("results/0")), true);
    EditorStage other;
    QSignalSpy changed(&view(other), &ResultsView::stateChanged);
    view(other).setState(stored);
    QVERIFY(!value(other, "load").isVisible());
    QVERIFY(value(other, "length").isVisible());
    QCOMPARE(box(other, "All").checkState(), Qt::PartiallyChecked);
    view(other).setState(zel::KeyValueStorage());
    QVERIFY(!value(other, "load").isVisible());
}

void TestResultsView::storedBetweenStarts()
{
    QTemporaryDir folder;
    const QString settings = folder.filePath(QStringLiteral("view.ini"));
    {
        EditorStage stage;
        stage.window.restoreView(settings);
        QVERIFY(value(stage, "buckling").isVisible());
        click(box(stage, "Buckling load"));
    }
    EditorStage stage;
    stage.window.restoreView(settings);
    QVERIFY(!value(stage, "buckling").isVisible());
    QVERIFY(value(stage, "mass").isVisible());
    QCOMPARE(box(stage, "All").checkState(), Qt::PartiallyChecked);
}

QTEST_MAIN(TestResultsView)
#include "tst_results_view.moc"
