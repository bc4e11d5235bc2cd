#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>

using namespace zel::qt;

namespace {

/// What a file dialog showed before it was closed.
struct Dialog
{
    bool seen = false;
    QString caption;
    QString directory;
    QStringList nameFilters;
    QFileDialog::FileMode mode = QFileDialog::AnyFile;
    bool foldersOnly = false;
    QWidget* parent = nullptr;
};

/// Waits for the file dialog, notes down what it shows, and does what a user does in it.
std::shared_ptr<Dialog> inNextDialog(const std::function<void(QFileDialog&)>& act)
{
    auto noted = std::make_shared<Dialog>();
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, noted, act] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return;
        }
        timer->stop();
        timer->deleteLater();
        *noted = {true,
                  dialog->windowTitle(),
                  dialog->directory().absolutePath(),
                  dialog->nameFilters(),
                  dialog->fileMode(),
                  dialog->testOption(QFileDialog::ShowDirsOnly),
                  dialog->parentWidget()};
        act(*dialog);
    });
    timer->start(0);
    return noted;
}

/// Types a name, or several in quotes, and presses Return.
std::shared_ptr<Dialog> chooseInNextDialog(const QString& names)
{
    return inNextDialog([names](QFileDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>();
        edit->setText(names);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

std::shared_ptr<Dialog> cancelNextDialog()
{
    return inNextDialog([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

/// A picker in a window.
struct Picker
{
    explicit Picker(TypeofPath type)
        : picker(&window, type)
        , edit(picker.findChild<MultiEditLineEdit*>())
        , button(picker.findChild<QToolButton*>())
        , changed(&picker, &MultiEditFilePicker::valueChanged)
    {
        picker.resize(300, 30);
        window.resize(320, 50);
        window.show();
    }

    QString text() const
    {
        return edit->edit().text();
    }

    QString value() const
    {
        return zel::test::told(picker.getCurrentValue());
    }

    QWidget window;
    MultiEditFilePicker picker;
    MultiEditLineEdit* edit;
    QToolButton* button;
    QSignalSpy changed;
};

QString told(const QString& path)
{
    return QStringLiteral("string '%1'").arg(path);
}

} // namespace

class FilePickerTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();

    void looksAsConstructed();
    void iconHasItsFiveColors();
    void typesHaveTheirNumbers();
    void startsWithoutAValue_data();
    void startsWithoutAValue();
    void picksAFile_data();
    void picksAFile();
    void picksSeveralFiles_data();
    void picksSeveralFiles();
    void picksAFolder();
    void picksAFolderWithName();
    void startsAtTheCurrentValue_data();
    void startsAtTheCurrentValue();
    void startsAFolderWithNameByItsParent_data();
    void startsAFolderWithNameByItsParent();
    void folderThatCannotBeTestedThrows();
    void cancelChangesNothingAndEmitsOnce_data();
    void cancelChangesNothingAndEmitsOnce();
    void longPathIsRefused();
    void typedPathEmitsOnce();
    void typedPathIsUtf8();
    void keysOpenTheDialog();
    void readsOfOneSelection();
    void setValueIsSilent();
    void forceVariesShowsTheMarker();
    void markerBroughtBackByUndoing();
    void varyingPickerStartsAtTheCurrentDirectory();
    void pickDecidesAVaryingValue();
    void filterIsPassedOn();
    void isNotSaved();
    void openingTheDialogEndsNoEditing();
    void assistiveToolsSeeTheButton();

private:
    QString path(const QString& name) const
    {
        return m_folder->filePath(name);
    }
    void touch(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void FilePickerTest::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void FilePickerTest::init()
{
    CheckedTest::init();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
}

void FilePickerTest::touch(const QString& name) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void FilePickerTest::looksAsConstructed()
{
    const Picker f(PathFile);
    auto* layout = qobject_cast<QBoxLayout*>(f.picker.layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->direction(), QBoxLayout::LeftToRight);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), static_cast<QWidget*>(f.edit));
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(f.button));
    QCOMPARE(int(f.button->focusPolicy()), 11);
    QCOMPARE(f.picker.focusProxy(), static_cast<QWidget*>(f.edit));
    QVERIFY(f.button->width() < f.edit->width());
}

void FilePickerTest::iconHasItsFiveColors()
{
    const Picker f(PathFile);
    const QImage image = f.button->icon().pixmap(16, 16).toImage();
    QCOMPARE(image.size(), QSize(16, 16));
    QSet<QString> colors;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const QColor color = image.pixelColor(x, y);
            colors << (color.alpha() == 0 ? QStringLiteral("none") : color.name());
        }
    }
    QCOMPARE(colors, (QSet<QString>{"none", "#000000", "#808000", "#ffff00", "#ffffff"}));
}

void FilePickerTest::typesHaveTheirNumbers()
{
    QCOMPARE(int(PathFile), 0);
    QCOMPARE(int(PathFiles), 1);
    QCOMPARE(int(PathFolder), 2);
    QCOMPARE(int(PathFolderWithName), 3);
}

void FilePickerTest::startsWithoutAValue_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("foldersOnly");
    QTest::newRow("file") << 0 << "Open File" << false;
    QTest::newRow("files") << 1 << "Open Files" << false;
    QTest::newRow("folder") << 2 << "Open Folder" << true;
    QTest::newRow("folder with name") << 3 << "Open Folder" << true;
}

void FilePickerTest::startsWithoutAValue()
{
    QFETCH(int, type);
    QFETCH(QString, caption);
    QFETCH(bool, foldersOnly);
    Picker f(static_cast<TypeofPath>(type));
    const auto dialog = cancelNextDialog();
    f.button->click();
    QVERIFY(dialog->seen);
    QCOMPARE(dialog->caption, caption);
    QCOMPARE(dialog->directory, QDir::currentPath());
    QCOMPARE(dialog->foldersOnly, foldersOnly);
    QVERIFY(foldersOnly ||
            dialog->mode == (type == 0 ? QFileDialog::ExistingFile : QFileDialog::ExistingFiles));
    QCOMPARE(dialog->parent, static_cast<QWidget*>(f.edit));
}

void FilePickerTest::picksAFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "beam.csv";
    QTest::newRow("blank") << "beam 1.csv";
    QTest::newRow("umlauts") << QString::fromUtf8("St\xc3\xbctze \xc3\x84\xc3\x9f.csv");
    QTest::newRow("outside the basic plane") << QString::fromUtf8("clef \xf0\x9d\x84\x9e.csv");
}

void FilePickerTest::picksAFile()
{
    QFETCH(QString, name);
    touch(name);
    Picker f(PathFile);
    const auto dialog = chooseInNextDialog(path(name));
    f.button->click();
    QVERIFY(dialog->seen);
    QCOMPARE(f.text(), path(name));
    QCOMPARE(f.value(), told(path(name)));
    QCOMPARE(f.changed.count(), 1);
}

void FilePickerTest::picksSeveralFiles_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("one") << "a.txt"
                         << "%1/a.txt";
    QTest::newRow("two") << "\"a.txt\" \"b.txt\""
                         << "2 files in %1";
    QTest::newRow("three") << "\"a.txt\" \"b.txt\" \"c.txt\""
                           << "3 files in %1";
}

void FilePickerTest::picksSeveralFiles()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    touch("a.txt");
    touch("b.txt");
    touch("c.txt");
    Picker f(PathFiles);
    // The dialog opens beside the file of the current value.
    f.picker.setValue(boost::any(path("c.txt").toStdString()));
    const auto dialog = chooseInNextDialog(typed);
    f.button->click();
    QVERIFY(dialog->seen);
    QCOMPARE(dialog->directory, m_folder->path());
    QCOMPARE(f.text(), shown.arg(m_folder->path()));
    QCOMPARE(f.value(), told(shown.arg(m_folder->path())));
    QCOMPARE(f.changed.count(), 1);
}

void FilePickerTest::picksAFolder()
{
    Picker f(PathFolder);
    chooseInNextDialog(path("folder"));
    f.button->click();
    QCOMPARE(f.value(), told(path("folder")));
    QCOMPARE(f.changed.count(), 1);
}

void FilePickerTest::picksAFolderWithName()
{
    Picker f(PathFolderWithName);
    f.picker.setFileName("results.db");
    chooseInNextDialog(path("folder"));
    f.button->click();
    QCOMPARE(f.value(), told(path("folder/results.db")));
    QCOMPARE(f.changed.count(), 1);
    Picker unnamed(PathFolderWithName);
    chooseInNextDialog(path("folder"));
    unnamed.button->click();
    QCOMPARE(unnamed.value(), told(path("folder/")));
}

void FilePickerTest::startsAtTheCurrentValue_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("directory");
    const QString here = QStringLiteral("here");
    QTest::newRow("file") << 0 << "folder/file"
                          << "folder";
    QTest::newRow("file that is gone") << 0 << "folder/gone" << here;
    QTest::newRow("files") << 1 << "folder/file"
                           << "folder";
    QTest::newRow("files, gone") << 1 << "folder/gone" << here;
    QTest::newRow("files, a count") << 1 << "3 files in folder" << here;
    QTest::newRow("folder") << 2 << "folder"
                            << "folder";
    QTest::newRow("folder that is gone") << 2 << "gone" << here;
}

void FilePickerTest::startsAtTheCurrentValue()
{
    QFETCH(int, type);
    QFETCH(QString, value);
    QFETCH(QString, directory);
    touch("folder/file");
    Picker f(static_cast<TypeofPath>(type));
    f.picker.setValue(boost::any(path(value).toStdString()));
    const auto dialog = cancelNextDialog();
    f.button->click();
    QCOMPARE(dialog->directory, directory == "here" ? QDir::currentPath() : path(directory));
    QCOMPARE(f.value(), told(path(value)));
}

void FilePickerTest::startsAFolderWithNameByItsParent_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("directory");
    QTest::newRow("existing folder") << "%1/folder/results.db"
                                     << "%1/folder";
    QTest::newRow("separators doubled") << "%1/folder//results.db"
                                        << "%1/folder";
    QTest::newRow("folder itself") << "%1/folder/"
                                   << "%1/folder";
    QTest::newRow("missing folder") << "%1/missing/results.db"
                                    << "here";
    QTest::newRow("name alone") << "results.db"
                                << "here";
    QTest::newRow("below the root") << "/results.db"
                                    << "/";
    // A backslash separates as well, so the parent is there; the dialog itself knows it only
    // where the system does.
    QTest::newRow("backslash") << "%1/folder\\results.db"
                               << "%1";
    QTest::newRow("backslash, missing folder") << "%1/missing\\results.db"
                                               << "here";
    QTest::newRow("drive that is not there") << "C:\\results.db"
                                             << "here";
}

void FilePickerTest::startsAFolderWithNameByItsParent()
{
    QFETCH(QString, value);
    QFETCH(QString, directory);
    Picker f(PathFolderWithName);
    value.replace(QLatin1String("%1"), m_folder->path());
    directory.replace(QLatin1String("%1"), m_folder->path());
    f.picker.setValue(boost::any(value.toStdString()));
    const auto dialog = cancelNextDialog();
    f.button->click();
    QVERIFY(dialog->seen);
    QCOMPARE(dialog->directory, directory == "here" ? QDir::currentPath() : directory);
}

void FilePickerTest::folderThatCannotBeTestedThrows()
{
    // A name that no file system takes.
    const QString tooLong = QLatin1Char('/') + QString(256, QLatin1Char('a')) + "/x";
    Picker f(PathFolderWithName);
    f.picker.setValue(boost::any(tooLong.toStdString()));
    try {
        // The slot alone: Qt's handling of a click is not made for exceptions.
        QMetaObject::invokeMethod(&f.picker, "onPick");
        QFAIL("no exception");
    } catch (const std::filesystem::filesystem_error& e) {
        QVERIFY(QByteArray(e.what()).contains("exists"));
        QVERIFY(e.code());
    }
    QCOMPARE(f.changed.count(), 0);
    QCOMPARE(f.text(), tooLong);
}

void FilePickerTest::cancelChangesNothingAndEmitsOnce_data()
{
    startsWithoutAValue_data();
}

void FilePickerTest::cancelChangesNothingAndEmitsOnce()
{
    QFETCH(int, type);
    Picker f(static_cast<TypeofPath>(type));
    f.picker.setFileName("results.db");
    f.picker.setValue(boost::any(std::string("somewhere/else")));
    const auto dialog = cancelNextDialog();
    QTest::mouseClick(f.button, Qt::LeftButton);
    QVERIFY(dialog->seen);
    QCOMPARE(f.text(), QStringLiteral("somewhere/else"));
    QCOMPARE(f.changed.count(), 1);
}

void FilePickerTest::longPathIsRefused()
{
    const auto pathOfLength = [this](int length) {
        QString folder = m_folder->path();
        while (length - folder.size() > 120) {
            folder += QLatin1Char('/') + QString(80, QLatin1Char('d'));
        }
        QDir().mkpath(folder);
        return folder + QLatin1Char('/') + QString(length - folder.size() - 1, QLatin1Char('f'));
    };
    for (const int length : {260, 261}) {
        const QString name = pathOfLength(length);
        QCOMPARE(name.size(), length);
        QVERIFY(QFile(name).open(QIODevice::WriteOnly));
        Picker f(PathFile);
        chooseInNextDialog(name);
        f.button->click();
        QCOMPARE(f.changed.count(), 1);
        // The text is kept whole; only its value is refused.
        QCOMPARE(f.text(), name);
        QCOMPARE(f.edit->isValueValid(), length == 260);
        f.picker.getValue();
        QCOMPARE(takeExpressions(), length == 260 ? QStringList() : QStringList{"ok"});
    }
}

void FilePickerTest::typedPathEmitsOnce()
{
    Picker f(PathFile);
    QVERIFY(zel::test::showActive(f.window));
    f.picker.setFocus();
    QTest::keyClicks(&f.edit->edit(), "a/b.txt");
    QCOMPARE(f.changed.count(), 0);
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Return);
    QCOMPARE(f.changed.count(), 1);
    QCOMPARE(f.value(), told("a/b.txt"));
    QVERIFY(f.edit->isValueValid());
}

void FilePickerTest::typedPathIsUtf8()
{
    Picker f(PathFile);
    const QString text = QString::fromUtf8("\xc3\xa4/\xf0\x9d\x84\x9e.txt");
    f.edit->edit().setText(text);
    const boost::any value = f.picker.getValue();
    QCOMPARE(boost::any_cast<std::string>(value), std::string("\xc3\xa4/\xf0\x9d\x84\x9e.txt"));
}

void FilePickerTest::keysOpenTheDialog()
{
    Picker f(PathFile);
    QVERIFY(zel::test::showActive(f.window));
    f.picker.setFocus();
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&f.edit->edit()));
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(f.button));
    f.changed.clear();
    const auto dialog = cancelNextDialog();
    QTest::keyClick(f.window.windowHandle(), Qt::Key_Space);
    QVERIFY(dialog->seen);
    QCOMPARE(f.changed.count(), 1);
}

void FilePickerTest::readsOfOneSelection()
{
    Picker f(PathFile);
    f.picker.readValue(boost::any(std::string("a")));
    QCOMPARE(f.value(), told("a"));
    f.picker.readValue(boost::any(std::string("a")));
    QVERIFY(!f.picker.dataVaries());
    f.picker.readValue(boost::any(std::string("b")));
    QVERIFY(f.picker.dataVaries());
    QCOMPARE(f.text(), getVariesString());
    QCOMPARE(f.value(), QStringLiteral("empty"));
    f.picker.reset();
    QVERIFY(!f.picker.dataVaries());
    f.picker.readValue(boost::any(std::string("c")));
    QCOMPARE(f.value(), told("c"));
    QCOMPARE(f.changed.count(), 0);
}

void FilePickerTest::setValueIsSilent()
{
    Picker f(PathFile);
    f.picker.forceVaries();
    f.picker.setValue(boost::any(std::string("a/b")));
    QVERIFY(!f.picker.dataVaries());
    QCOMPARE(f.value(), told("a/b"));
    QCOMPARE(f.changed.count(), 0);
}

void FilePickerTest::forceVariesShowsTheMarker()
{
    Picker f(PathFile);
    f.picker.setValue(boost::any(std::string("a/b")));
    f.picker.forceVaries();
    QCOMPARE(f.text(), getVariesString());
    QVERIFY(f.picker.getValue().empty());
    QVERIFY(f.picker.getCurrentValue().empty());
    QCOMPARE(f.changed.count(), 0);
}

void FilePickerTest::markerBroughtBackByUndoing()
{
    Picker f(PathFile);
    f.picker.forceVaries();
    QLineEdit& edit = f.edit->edit();
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_A);
    QCOMPARE(f.value(), told("a"));
    for (int i = 0; i < 3 && f.text() != getVariesString(); ++i) {
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    }
    QCOMPARE(f.text(), getVariesString());
    // The values count as decided, but the marker is no path.
    QVERIFY(!f.picker.dataVaries());
    QVERIFY(f.picker.getValue().empty());
    QVERIFY(f.picker.getCurrentValue().empty());
    const auto dialog = cancelNextDialog();
    f.button->click();
    QCOMPARE(dialog->directory, QDir::currentPath());
    QCOMPARE(f.text(), getVariesString());
    QCOMPARE(f.changed.count(), 1); // that of the dialog
}

void FilePickerTest::varyingPickerStartsAtTheCurrentDirectory()
{
    for (const TypeofPath type : {PathFile, PathFiles, PathFolder, PathFolderWithName}) {
        Picker f(type);
        f.picker.setValue(boost::any(path("folder").toStdString()));
        f.picker.forceVaries();
        const auto dialog = cancelNextDialog();
        f.button->click();
        QCOMPARE(dialog->directory, QDir::currentPath());
        // Cancelled, so it is still undecided.
        QVERIFY(f.picker.dataVaries());
        QCOMPARE(f.text(), getVariesString());
        QCOMPARE(f.changed.count(), 1);
    }
}

void FilePickerTest::pickDecidesAVaryingValue()
{
    touch("a.txt");
    Picker f(PathFile);
    f.picker.forceVaries();
    chooseInNextDialog(path("a.txt"));
    f.button->click();
    QVERIFY(!f.picker.dataVaries());
    QCOMPARE(f.value(), told(path("a.txt")));
    QCOMPARE(f.changed.count(), 1);
}

void FilePickerTest::filterIsPassedOn()
{
    for (const TypeofPath type : {PathFile, PathFiles}) {
        Picker f(type);
        f.picker.setFilter("Tr\xc3\xa4ger (*.csv *.txt);;All (*)");
        const auto dialog = cancelNextDialog();
        f.button->click();
        QCOMPARE(dialog->nameFilters,
                 (QStringList{QString::fromUtf8("Tr\xc3\xa4ger (*.csv *.txt)"), "All (*)"}));
    }
}

void FilePickerTest::isNotSaved()
{
    Picker f(PathFile);
    f.picker.setCanBeSaved("key");
    QVERIFY(!f.picker.canBeSaved());
    QCOMPARE(f.picker.getStorageId(), std::string());
}

void FilePickerTest::openingTheDialogEndsNoEditing()
{
    Picker f(PathFile);
    QVERIFY(zel::test::showActive(f.window));
    f.picker.setFocus();
    QTest::keyClicks(&f.edit->edit(), "a");
    const auto dialog = cancelNextDialog();
    f.button->click();
    QVERIFY(dialog->seen);
    // The dialog takes the focus from the edit; the host hears of it once, when both are done.
    QCOMPARE(f.changed.count(), 1);
    QCOMPARE(f.value(), told("a"));
    QTest::keyClick(&f.edit->edit(), Qt::Key_Return);
    QCOMPARE(f.changed.count(), 2);
}

void FilePickerTest::assistiveToolsSeeTheButton()
{
    const Picker file(PathFile);
    const Picker folder(PathFolder);
    QCOMPARE(QAccessible::queryAccessibleInterface(file.button)->text(QAccessible::Name),
             QStringLiteral("Open File"));
    QCOMPARE(QAccessible::queryAccessibleInterface(folder.button)->text(QAccessible::Name),
             QStringLiteral("Open Folder"));
}

QTEST_MAIN(FilePickerTest)
#include "tst_file_picker.moc"
