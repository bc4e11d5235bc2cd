#include "platform/environment.h"
#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"

#include <QFile>
#include <QTemporaryDir>

using zel::qt::Pixmap;

class PixmapTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void unusableImages_data();
    void unusableImages();
    void defaultIsNotSpoiledByItsUsers();
    void findsTheImageOfTheLibrary();
    void findsAnImageOfTheHost();
    void otherGroupsAreNotSearched();

private:
    QTemporaryDir m_dir;
    QTemporaryDir m_otherDir;
};

void PixmapTest::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QPixmap picture(3, 7);
    picture.fill(Qt::green);
    QVERIFY(picture.save(m_dir.filePath(QStringLiteral("green.png"))));
    QFile text(m_dir.filePath(QStringLiteral("text.png")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("not an image");
    zel::app::Environment::instance().getPaths("").add(m_dir.path().toStdWString());

    QVERIFY(m_otherDir.isValid());
    QVERIFY(picture.save(m_otherDir.filePath(QStringLiteral("of_other_group.png"))));
    zel::app::Environment::instance().getPaths("other").add(m_otherDir.path().toStdWString());
}

void PixmapTest::unusableImages_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown name") << "no_such_image.png";
    QTest::newRow("empty name") << "";
    QTest::newRow("not an image") << "text.png";
}

void PixmapTest::unusableImages()
{
    QFETCH(QString, name);
    QVERIFY(!Pixmap::create(name.toStdWString()));
    const QPixmap pixmap = Pixmap::createOrDefault(name.toStdWString());
    QCOMPARE(pixmap.size(), QSize(16, 16));
    const QImage image = pixmap.toImage();
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            QCOMPARE(image.pixelColor(x, y), QColor(Qt::white));
        }
    }
}

void PixmapTest::defaultIsNotSpoiledByItsUsers()
{
    QPixmap first = Pixmap::createOrDefault(L"no_such_image.png");
    first.fill(Qt::black);
    const QImage second = Pixmap::createOrDefault(L"no_such_image.png").toImage();
    QCOMPARE(second.pixelColor(8, 8), QColor(Qt::white));
}

void PixmapTest::findsTheImageOfTheLibrary()
{
    const auto pixmap = Pixmap::create(L"control_repeat_blue.png");
    QVERIFY(pixmap);
    QCOMPARE(pixmap->size(), QSize(16, 16));
    QCOMPARE(Pixmap::createOrDefault(L"control_repeat_blue.png").toImage(), pixmap->toImage());
}

void PixmapTest::findsAnImageOfTheHost()
{
    const auto pixmap = Pixmap::create(L"green.png");
    QVERIFY(pixmap);
    QCOMPARE(pixmap->size(), QSize(3, 7));
    QCOMPARE(Pixmap::createOrDefault(L"green.png").toImage().pixelColor(1, 1), QColor(Qt::green));
}

void PixmapTest::otherGroupsAreNotSearched()
{
    QVERIFY(!Pixmap::create(L"of_other_group.png"));
}

QTEST_MAIN(PixmapTest)
#include "tst_pixmap.moc"
