// What the window does with files: opening, saving, and what is asked before changes go.
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/main_window.h"
#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/model_file.h"
#include "examples/frame_editor/property_panel.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace frame_editor {

namespace {

/// Keeps a text of the table that was refused through a dialog, for the user to mend. What is being
/// typed has to be committed before.
class OpenCell
{
public:
    explicit OpenCell(MemberTable& table)
        : m_table(table)
        , m_open(table.openText())
    {}
    ~OpenCell()
    {
        m_table.reopen(m_open);
    }
    OpenCell(const OpenCell&) = delete;
    OpenCell& operator=(const OpenCell&) = delete;

    void giveUp()
    {
        m_open = {};
    }

private:
    MemberTable& m_table;
    MemberTable::OpenText m_open;
};

} // namespace

bool MainWindow::openFile(const QString& fileName)
{
    try {
        m_document.open(fileName);
    } catch (const FileError& error) {
        showStatus(error.message());
        warn(tr("The model cannot be opened"), error.message());
        return false;
    }
    showStatus(tr("%1 opened").arg(QFileInfo(fileName).fileName()));
    return true;
}

bool MainWindow::openForm(const QString& fileName)
{
    try {
        m_panel->setForm(loadForm(fileName));
    } catch (const FileError& error) {
        showStatus(error.message());
        warn(tr("The form cannot be used"), error.message());
        return false;
    }
    showStatus(tr("Form: %1").arg(m_panel->form().title));
    return true;
}

void MainWindow::openFormWithDialog()
{
    commitPending();
    const OpenCell open(*m_table);
    const QStringList forms = formFiles();
    const QString fileName = QFileDialog::getOpenFileName(
        this, tr("Open a form"), forms.isEmpty() ? QString() : forms.first(), tr("Forms (*.json)"));
    if (!fileName.isEmpty()) {
        openForm(fileName);
    }
}

void MainWindow::openWithDialog()
{
    if (!mayDiscard()) {
        return;
    }
    const QString fileName = QFileDialog::getOpenFileName(
        this, tr("Open a model"), m_document.fileName(), tr("Frame models (*.json)"));
    if (!fileName.isEmpty()) {
        openFile(fileName);
    }
}

bool MainWindow::save()
{
    return m_document.fileName().isEmpty() ? saveWithDialog() : saveTo(m_document.fileName());
}

bool MainWindow::saveWithDialog()
{
    const QFileInfo present(m_document.fileName());
    QFileDialog dialog(this, tr("Save the model"), present.path(), tr("Frame models (*.json)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // So that the dialog for opening lists the file; it also asks before it replaces that name.
    dialog.setDefaultSuffix(QStringLiteral("json"));
    if (!m_document.fileName().isEmpty()) {
        dialog.selectFile(present.fileName());
    }
    commitPending();
    {
        const OpenCell open(*m_table);
        if (dialog.exec() != QDialog::Accepted) {
            return false;
        }
    }
    return saveTo(dialog.selectedFiles().constFirst());
}

bool MainWindow::saveTo(const QString& fileName)
{
    const QString refusal = commitPending();
    const OpenCell open(*m_table);
    try {
        m_document.saveAs(fileName);
    } catch (const FileError& error) {
        showStatus(error.message());
        warn(tr("The model cannot be saved"), error.message());
        return false;
    }
    tell(tr("%1 saved").arg(QFileInfo(fileName).fileName()), refusal);
    return true;
}

void MainWindow::warn(const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // what stands in a file is no mark-up
    box.exec();
}

bool MainWindow::mayDiscard()
{
    // A text that is refused is no change of the model, but the user should not lose it unasked.
    const QString refusal = commitPending();
    const bool modified = m_document.isModified();
    if (!modified && refusal.isEmpty()) {
        return true;
    }
    QStringList reasons;
    if (modified) {
        reasons << tr("The model has changes that are not saved.");
    }
    if (!refusal.isEmpty()) {
        reasons << refusal;
    }
    OpenCell open(*m_table);
    QMessageBox box(QMessageBox::Question, tr("Unsaved changes"), reasons.join(QLatin1Char('\n')),
                    QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setTextFormat(Qt::PlainText);
    if (modified) {
        box.addButton(QMessageBox::Save);
    }
    box.setDefaultButton(modified ? QMessageBox::Save : QMessageBox::Cancel);
    const int answer = box.exec();
    const bool may = answer == QMessageBox::Save ? save() : answer == QMessageBox::Discard;
    if (may) {
        open.giveUp();
    }
    return may;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayDiscard());
}

void MainWindow::showFile()
{
    const QString name = m_document.fileName().isEmpty()
                             ? tr("Unnamed")
                             : QFileInfo(m_document.fileName()).fileName();
    // A name may have the sign in itself that stands for the mark of changes.
    const QString shown = QString(name).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    setWindowTitle(tr("%1[*] - Frame editor").arg(shown));
    setWindowModified(m_document.isModified());
}

} // namespace frame_editor
