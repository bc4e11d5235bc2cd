#include "qt/inc/controls/file_picker.h"

#include "qt/inc/controls/multi_edit_line_edit.h"
#include "qt/inc/controls/signal_blocker.h"
#include "qt/inc/validators/string_edit_validator.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QPixmap>
#include <QToolButton>

#include <algorithm>
#include <filesystem>

namespace zel::qt {
namespace {

const std::size_t longestPath = 260;

// clang-format off
// An open folder with an arrow that leads into it.
const char* const openFolder[] = {
    "16 16 5 1",
    "# c #000000",
    "o c #808000",
    ". c None",
    "y c #ffff00",
    "w c #ffffff",
    "................",
    "............#...",
    "........######..",
    "............#...",
    "..###...........",
    ".#ywy#######....",
    ".#wywywywyw#....",
    ".#ywywywywy#....",
    ".#wywy##########",
    ".#ywy#ooooooooo#",
    ".#wy#ooooooooo#.",
    ".#y#ooooooooo#..",
    ".##ooooooooo#...",
    ".###########....",
    "................",
    "................",
};
// clang-format on

bool isSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('\\');
}

/// The path without its last name and the separators before that. A root stays: "/a" gives "/"
/// and "C:\a" gives "C:\". Both separators count on every system, since paths come from files
/// that were written on others.
QString parentPath(const QString& path)
{
    int end = path.size();
    while (end > 0 && !isSeparator(path[end - 1])) {
        --end;
    }
    int trimmed = end;
    while (trimmed > 0 && isSeparator(path[trimmed - 1])) {
        --trimmed;
    }
    const bool isRoot = trimmed == 0 || (trimmed == 2 && path[1] == QLatin1Char(':'));
    return path.left(isRoot ? std::min(trimmed + 1, end) : trimmed);
}

bool folderExists(const QString& folder)
{
    const std::filesystem::path path = std::filesystem::u8path(folder.toStdString());
    std::error_code error;
    const bool exists = std::filesystem::exists(path, error);
    if (error) {
        throw std::filesystem::filesystem_error("exists", path, error);
    }
    return exists;
}

} // namespace

MultiEditFilePicker::MultiEditFilePicker(QWidget* parent, TypeofPath type)
    : QWidget(parent)
    , m_edit(nullptr)
    , m_button(nullptr)
    , m_type(type)
{
    auto* layout = new QBoxLayout(QBoxLayout::LeftToRight);
    setLayout(layout);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    auto* validator = new StringEditValidator(longestPath);
    validator->setStorageType(StringEditValidator::Utf8);
    m_edit = MultiEditLineEdit::create(this, QString(), validator, 0, ExpandRight);
    m_edit->setMinimumWidthFactor(0.3);
    layout->addWidget(m_edit);

    m_button = new QToolButton(this);
    m_button->setIcon(QPixmap(openFolder));
    m_button->setFocusPolicy(Qt::StrongFocus);
    m_button->setAccessibleName(type == PathFile    ? tr("Open File")
                                : type == PathFiles ? tr("Open Files")
                                                    : tr("Open Folder"));
    layout->addWidget(m_button);

    connect(m_button, SIGNAL(clicked(bool)), this, SLOT(onPick()));
    connect(m_edit, SIGNAL(valueChanged()), this, SIGNAL(valueChanged()));
    setFocusProxy(m_edit);
}

MultiEditFilePicker::~MultiEditFilePicker() = default;

void MultiEditFilePicker::reset()
{
    m_edit->reset();
}

void MultiEditFilePicker::readValue(const boost::any& value)
{
    m_edit->readValue(value);
}

bool MultiEditFilePicker::dataVaries() const
{
    return m_edit->dataVaries();
}

boost::any MultiEditFilePicker::getCurrentValue() const
{
    return dataVaries() ? boost::any() : getValue();
}

void MultiEditFilePicker::setValue(const boost::any& value)
{
    m_edit->setValue(value);
}

void MultiEditFilePicker::forceVaries()
{
    m_edit->forceVaries();
}

boost::any MultiEditFilePicker::getValue() const
{
    if (m_edit == nullptr || m_edit->dataVaries() || m_edit->showsMarker()) {
        return {};
    }
    return m_edit->getValue();
}

void MultiEditFilePicker::setFilter(const std::string& filter)
{
    m_filter = filter;
}

void MultiEditFilePicker::setFileName(const std::string& fileName)
{
    m_fileName = fileName;
}

void MultiEditFilePicker::setCanBeSaved(const std::string&) {}

void MultiEditFilePicker::onPick()
{
    const boost::any value = getValue();
    const QString current =
        value.empty() ? QString() : QString::fromStdString(boost::any_cast<std::string>(value));
    QString picked;
    {
        // The dialog takes the focus from the edit, which ends its editing; the host is told once,
        // below, when the pick is done as well.
        const SignalBlocker blocker(m_edit);
        picked = pick(current);
    }
    if (!picked.isEmpty()) {
        m_edit->setValue(boost::any(picked.toStdString()));
    }
    // Also when the dialog was cancelled: hosts compare the values.
    Q_EMIT valueChanged();
}

QString MultiEditFilePicker::pick(const QString& current)
{
    const QString here = QDir::currentPath();
    const QString filter = QString::fromStdString(m_filter);
    switch (m_type) {
    case PathFile: {
        const QString start = QFileInfo::exists(current) ? current : here;
        return QFileDialog::getOpenFileName(m_edit, tr("Open File"), start, filter);
    }
    case PathFiles: {
        const QString start = QFileInfo::exists(current) ? current : here;
        const QStringList files =
            QFileDialog::getOpenFileNames(m_edit, tr("Open Files"), start, filter);
        if (files.size() < 2) {
            return files.value(0);
        }
        return QString::number(files.size()) + QStringLiteral(" files in ") +
               parentPath(files.first());
    }
    case PathFolder: {
        // QDir takes an empty name for the current directory.
        const bool exists = !current.isEmpty() && QDir(current).exists();
        return QFileDialog::getExistingDirectory(m_edit, tr("Open Folder"),
                                                 exists ? current : here);
    }
    case PathFolderWithName: {
        const QString start = folderExists(parentPath(current)) ? current : here;
        const QString fileName = QString::fromStdString(m_fileName);
        const QString folder = QFileDialog::getExistingDirectory(m_edit, tr("Open Folder"), start);
        return folder.isEmpty() ? folder : folder + QLatin1Char('/') + fileName;
    }
    }
    return {};
}

} // namespace zel::qt
