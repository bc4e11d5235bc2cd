#include "qt/inc/graphics/ruler_ticks.h"
#include "tests/helpers/checked_test.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

using namespace zel::qt::graphics;

using Numbers = std::vector<double>;
Q_DECLARE_METATYPE(Numbers)

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();
constexpr int plentyOfPixels = 100000;

/// The marks by their definition, with integers of 32 bits; only for numbers that fit.
RulerTicks ticksByDefinition(double low, double high, double pixel)
{
    const double major = rulerStep(pixel) * 5;
    const double first = static_cast<std::int32_t>(low / major) * major;
    const double last = static_cast<std::int32_t>(high / major) * major;
    std::set<double> sums;
    for (double t = first; t <= last; t += major) {
        sums.insert(t);
    }
    RulerTicks ticks;
    ticks.major.assign(sums.begin(), sums.end());
    for (std::size_t i = 1; i < ticks.major.size(); ++i) {
        const double a = ticks.major[i - 1];
        const double b = ticks.major[i];
        for (double t = a; t <= b; t += (b - a) / 5) {
            ticks.minor.push_back(t);
        }
    }
    return ticks;
}

} // namespace

class RulerTicksTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void step_data();
    void step();
    void majorMarks_data();
    void majorMarks();
    void minorMarks();
    void minorMarksIncludeBothEndsOfEachInterval();
    void noNegativeZero();
    void followsTheDefinition_data();
    void followsTheDefinition();
    void neverMoreMarksThanPixels_data();
    void neverMoreMarksThanPixels();
    void marksAreLeftOutOnlyWhereTheyDoNotFit();
    void marksMissedByRoundingTakeNoRoom();
    void thinnedMarksAreMarksOfTheFullSet_data();
    void thinnedMarksAreMarksOfTheFullSet();
    void noMarks_data();
    void noMarks();
    void stepsLostInRoundingEnd();
};

void RulerTicksTest::step_data()
{
    QTest::addColumn<double>("pixel");
    QTest::addColumn<double>("expected");
    // Only a value greater than ten pixels qualifies: at an edge of the list the next one is taken.
    const Numbers list = {0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100};
    for (std::size_t i = 0; i < list.size(); ++i) {
        const QByteArray name = QByteArray::number(list[i]);
        QTest::newRow("just below " + name) << list[i] * 0.0999 << list[i];
        if (i + 1 < list.size()) {
            QTest::newRow("exactly " + name) << list[i] / 10 << list[i + 1];
            QTest::newRow("just above " + name) << list[i] * 0.1001 << list[i + 1];
        }
    }
    QTest::newRow("exactly the end of the list") << 10.0 << 100.0;
    QTest::newRow("just beyond the list") << 10.01 << 10.01 * 10;
    QTest::newRow("beyond the list") << 15.0 << 150.0;
    QTest::newRow("far beyond the list") << 1e300 << 1e300 * 10;
    QTest::newRow("zoomed in beyond the list") << 1e-9 << 0.1;
    QTest::newRow("least number") << std::numeric_limits<double>::denorm_min() << 0.1;
    QTest::newRow("zero") << 0.0 << 0.1;
    QTest::newRow("mirrored") << -3.0 << 0.1;
    QTest::newRow("infinite") << infinite << infinite;
}

void RulerTicksTest::step()
{
    QFETCH(double, pixel);
    QFETCH(double, expected);
    QVERIFY2(rulerStep(pixel) == expected, qPrintable(QString::number(rulerStep(pixel))));
}

void RulerTicksTest::majorMarks_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("pixel");
    QTest::addColumn<Numbers>("major");
    // 0.5 is the edge at which the step becomes 10 and the major step 50.
    QTest::newRow("ten pixels are five") << 0.0 << 120.0 << 0.5 << Numbers{0, 50, 100};
    QTest::newRow("beyond the list") << -800.0 << 1600.0 << 15.0 << Numbers{-750, 0, 750, 1500};
    QTest::newRow("both ends on marks") << -10.0 << 10.0 << 0.1 << Numbers{-10, 0, 10};
    QTest::newRow("between two positive marks") << 51.0 << 99.0 << 0.5 << Numbers{50};
    QTest::newRow("between two negative marks") << -99.0 << -51.0 << 0.5 << Numbers{-50};
    QTest::newRow("positive range begins outside")
        << 30.0 << 60.0 << 0.1 << Numbers{30, 40, 50, 60};
    QTest::newRow("positive, cut ends") << 31.0 << 59.0 << 0.1 << Numbers{30, 40, 50};
    QTest::newRow("negative, cut ends") << -59.0 << -31.0 << 0.1 << Numbers{-50, -40, -30};
    QTest::newRow("about zero") << -9.0 << 9.0 << 0.1 << Numbers{0};
    QTest::newRow("from zero") << 0.0 << 9.0 << 0.1 << Numbers{0};
    QTest::newRow("to zero") << -9.0 << 0.0 << 0.1 << Numbers{0};
    QTest::newRow("just short of a mark") << -9.999 << 9.999 << 0.1 << Numbers{0};
    QTest::newRow("empty range on a mark") << 10.0 << 10.0 << 0.1 << Numbers{10};
    QTest::newRow("empty range beside a mark") << 12.0 << 12.0 << 0.1 << Numbers{10};
    QTest::newRow("tiny range") << 1e-300 << 2e-300 << 1e-302 << Numbers{0};
    QTest::newRow("steps of a half") << -0.7 << 1.1 << 0.001 << Numbers{-0.5, 0, 0.5, 1};
    QTest::newRow("mirrored scale") << 0.0 << 1.0 << -1.0 << Numbers{0, 0.5, 1};
    QTest::newRow("backwards across a mark") << 20.0 << -20.0 << 0.1 << Numbers{};
    QTest::newRow("backwards beside a mark") << 19.0 << 11.0 << 0.1 << Numbers{10};
    QTest::newRow("backwards about zero") << 9.0 << -9.0 << 0.1 << Numbers{0};
    QTest::newRow("at the edge of 32 bits") << 2147483646.0 * 0.5 << 2147483647.0 * 0.5 << 0.001
                                            << Numbers{2147483646.0 * 0.5, 2147483647.0 * 0.5};
    QTest::newRow("beyond 32 bits")
        << 1e12 << 1e12 + 1 << 0.001 << Numbers{1e12, 1e12 + 0.5, 1e12 + 1};
    QTest::newRow("beyond 32 bits, negative")
        << -1e12 - 1 << -1e12 << 0.001 << Numbers{-1e12 - 1, -1e12 - 0.5, -1e12};
}

void RulerTicksTest::majorMarks()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, pixel);
    QFETCH(Numbers, major);
    QCOMPARE(rulerTicks(low, high, pixel, plentyOfPixels).major, major);
}

void RulerTicksTest::minorMarks()
{
    QCOMPARE(rulerTicks(0, 51, 0.5, plentyOfPixels).minor, (Numbers{0, 10, 20, 30, 40, 50}));
    QCOMPARE(rulerTicks(51, 99, 0.5, plentyOfPixels).minor, Numbers{});
    QCOMPARE(rulerTicks(0, 1600, 15, plentyOfPixels).minor,
             (Numbers{0, 150, 300, 450, 600, 750, 750, 900, 1050, 1200, 1350, 1500}));
}

void RulerTicksTest::minorMarksIncludeBothEndsOfEachInterval()
{
    // 0.1 added up five times is 0.5, so the upper end is met; from 0.5 on it is 1 less one bit.
    const RulerTicks ticks = rulerTicks(0, 1, 0.001, plentyOfPixels);
    const double fifth = 0.5 / 5;
    Numbers expected = {0};
    for (int i = 0; i < 5; ++i) {
        expected.push_back(expected.back() + fifth);
    }
    QCOMPARE(expected.back(), 0.5);
    expected.push_back(0.5);
    for (int i = 0; i < 5; ++i) {
        expected.push_back(expected.back() + fifth);
    }
    QVERIFY(ticks.minor == expected);
}

void RulerTicksTest::noNegativeZero()
{
    const RulerTicks beside = rulerTicks(-3, -1, 0.1, plentyOfPixels);
    QCOMPARE(beside.major, Numbers{0});
    QVERIFY(!std::signbit(beside.major[0]));
    const RulerTicks across = rulerTicks(-30, 30, 0.1, plentyOfPixels);
    QCOMPARE(across.major[3], 0.0);
    QVERIFY(!std::signbit(across.major[3]));
    const RulerTicks thinned = rulerTicks(-3, 1e6, 0.01, 200);
    QCOMPARE(thinned.major[0], 0.0);
    QVERIFY(!std::signbit(thinned.major[0]));
}

void RulerTicksTest::followsTheDefinition_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("pixels");
    for (const double low : {-1e4, -333.3, -0.7, 0.0, 0.3, 12345.678}) {
        for (const double pixels : {1.0, 2.0, 17.0, 640.0, 3840.0}) {
            QTest::addRow("%g on %g pixels", low, pixels) << low << pixels;
        }
    }
}

void RulerTicksTest::followsTheDefinition()
{
    QFETCH(double, low);
    QFETCH(double, pixels);
    for (double pixel = 1e-3; pixel < 1e6; pixel *= 1.37) {
        const double high = low + pixels * pixel;
        // Both rulers of a view go by the pixel of one: up to the half, the other is as dense.
        for (const double ratio : {1.0, 0.5, 3.0}) {
            const RulerTicks ticks = rulerTicks(low, high, pixel * ratio, plentyOfPixels);
            const RulerTicks expected = ticksByDefinition(low, high, pixel * ratio);
            QVERIFY2(ticks.major == expected.major, qPrintable(QString::number(pixel)));
            QVERIFY2(ticks.minor == expected.minor, qPrintable(QString::number(pixel)));
            QVERIFY(!ticks.major.empty());
        }
    }
}

void RulerTicksTest::neverMoreMarksThanPixels_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("pixel");
    QTest::newRow("ordinary") << 0.0 << 300.0 << 1.0;
    QTest::newRow("a million times as high as wide") << 0.0 << 3e8 << 1.0;
    QTest::newRow("a thousand million times as high as wide") << -3e11 << 3e11 << 1.0;
    QTest::newRow("the same, zoomed in") << -3e8 << 3e8 << 1e-3;
    QTest::newRow("pixel without width") << 0.0 << 1e9 << 0.0;
    QTest::newRow("mirrored") << -500.0 << 500.0 << -1.0;
    QTest::newRow("negative numbers beyond 32 bits") << -3e15 << -1e15 << 1.0;
    QTest::newRow("most of the doubles") << -largest / 4 << largest / 4 << 1.0;
    QTest::newRow("all doubles") << -largest << largest << 1.0;
    QTest::newRow("all doubles in their scale") << -largest << largest << largest / 300;
    QTest::newRow("large numbers") << 1e17 << 2e17 << 1e14;
    QTest::newRow("steps below the precision") << 1e17 << 1e17 + 1e4 << 1.0;
}

void RulerTicksTest::neverMoreMarksThanPixels()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, pixel);
    QElapsedTimer timer;
    timer.start();
    for (const int pixels : {0, 1, 2, 7, 30, 200, 1001, 30000}) {
        const RulerTicks ticks = rulerTicks(low, high, pixel, pixels);
        const std::size_t marks = ticks.major.size() + ticks.minor.size();
        QVERIFY2(marks <= std::size_t(pixels),
                 qPrintable(QStringLiteral("%1 marks on %2 pixels").arg(marks).arg(pixels)));
        QVERIFY(std::is_sorted(ticks.major.begin(), ticks.major.end()));
        QVERIFY(std::adjacent_find(ticks.major.begin(), ticks.major.end()) == ticks.major.end());
    }
    QVERIFY2(timer.elapsed() < 10000, "takes time in proportion to the range");
}

void RulerTicksTest::marksAreLeftOutOnlyWhereTheyDoNotFit()
{
    // 0, 5 ... 50 are 11 major marks with 60 minor ones.
    const RulerTicks full = rulerTicks(0, 50, 0.09, 71);
    QCOMPARE(full.major.size(), std::size_t(11));
    QCOMPARE(full.minor.size(), std::size_t(60));
    const RulerTicks thinned = rulerTicks(0, 50, 0.09, 70);
    QCOMPARE(thinned.major, (Numbers{0, 50}));
    QCOMPARE(thinned.minor, (Numbers{0, 10, 20, 30, 40, 50}));
}

/// The fifth of five steps can miss the end of its interval by the rounding of its sum. What counts
/// is the marks that there are: of these, 21 major ones with 115 and not 120 minor ones.
void RulerTicksTest::marksMissedByRoundingTakeNoRoom()
{
    const RulerTicks full = rulerTicks(0, 10, 0.009, 136);
    QCOMPARE(full.major.size(), std::size_t(21));
    QCOMPARE(full.minor.size(), std::size_t(115));
    QVERIFY(rulerTicks(0, 10, 0.009, 135).major.size() < 21);
}

void RulerTicksTest::thinnedMarksAreMarksOfTheFullSet_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("about zero") << -123.0 << 4567.0;
    QTest::newRow("positive") << 1234.0 << 4567.0;
    QTest::newRow("negative") << -4567.0 << -1234.0;
}

void RulerTicksTest::thinnedMarksAreMarksOfTheFullSet()
{
    QFETCH(double, low);
    QFETCH(double, high);
    const double pixel = 0.07;
    const RulerTicks full = rulerTicks(low, high, pixel, plentyOfPixels);
    const RulerTicks thinned = rulerTicks(low, high, pixel, 400);
    QVERIFY(thinned.major.size() > 1);
    QVERIFY(thinned.major.size() < full.major.size());
    QVERIFY(std::includes(full.major.begin(), full.major.end(), thinned.major.begin(),
                          thinned.major.end()));
    const std::set<double> minor(thinned.minor.begin(), thinned.minor.end());
    QVERIFY(std::includes(full.minor.begin(), full.minor.end(), minor.begin(), minor.end()));
    // Far enough apart to read: some fifty of the 400 pixels.
    const double distance = thinned.major[1] - thinned.major[0];
    QVERIFY(distance >= (high - low) * 50 / 400 * 0.99);
    QVERIFY(distance <= (high - low) * 50 / 400 * 3);
}

void RulerTicksTest::noMarks_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("pixel");
    QTest::newRow("low is no number") << notANumber << 1.0 << 1.0;
    QTest::newRow("high is no number") << 0.0 << notANumber << 1.0;
    QTest::newRow("pixel is no number") << 0.0 << 100.0 << notANumber;
    QTest::newRow("low is infinite") << -infinite << 1.0 << 1.0;
    QTest::newRow("high is infinite") << 0.0 << infinite << 1.0;
    QTest::newRow("both are infinite") << -infinite << infinite << 1.0;
    QTest::newRow("both are the same infinity") << infinite << infinite << 1.0;
    QTest::newRow("pixel is infinite") << 0.0 << 100.0 << infinite;
    QTest::newRow("step beyond the doubles") << 0.0 << 100.0 << largest;
    QTest::newRow("wider than the doubles") << -largest << largest << 1.0;
    QTest::newRow("all is infinite") << -infinite << infinite << infinite;
}

void RulerTicksTest::noMarks()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, pixel);
    const RulerTicks ticks = rulerTicks(low, high, pixel, 500);
    QCOMPARE(ticks.major, Numbers{});
    QCOMPARE(ticks.minor, Numbers{});
}

void RulerTicksTest::stepsLostInRoundingEnd()
{
    // The step of 0.5 is below the precision of 1e17, so every sum is the first one.
    const RulerTicks ticks = rulerTicks(1e17, 1e17 + 32, 0.001, plentyOfPixels);
    QCOMPARE(ticks.major, Numbers{1e17});
    QCOMPARE(ticks.minor, Numbers{});
}

QTEST_GUILESS_MAIN(RulerTicksTest)
#include "tst_ruler_ticks.moc"
