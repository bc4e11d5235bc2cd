#include "examples/frame_editor/main_window.h"

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_list.h"
#include "examples/frame_editor/model_file.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUndoStack>

namespace frame_editor {

MainWindow::MainWindow(Document& document, QWidget* parent)
    : QMainWindow(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("mainWindow"));
    createActions();
    createViews();
    connect(&document, &Document::fileChanged, this, &MainWindow::showFile);
    showFile();
    statusBar()->showMessage(tr("Ready"));
    resize(1180, 760);
}

void MainWindow::createActions()
{
    QMenu* fileMenu = menuBar()->addMenu(tr("&File"));
    QAction* open = fileMenu->addAction(style()->standardIcon(QStyle::SP_DialogOpenButton),
                                        tr("&Open..."), this, &MainWindow::openWithDialog);
    open->setShortcut(QKeySequence::Open);
    QAction* saveAction = fileMenu->addAction(style()->standardIcon(QStyle::SP_DialogSaveButton),
                                              tr("&Save"), this, &MainWindow::save);
    saveAction->setShortcut(QKeySequence::Save);
    QAction* saveAs = fileMenu->addAction(tr("Save &as..."), this, &MainWindow::saveWithDialog);
    saveAs->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S));
    fileMenu->addSeparator();
    QAction* quit = fileMenu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Q));

    QMenu* editMenu = menuBar()->addMenu(tr("&Edit"));
    QUndoStack& stack = m_document.undoStack();
    QAction* undo = stack.createUndoAction(this, tr("Undo"));
    undo->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = stack.createRedoAction(this, tr("Redo"));
    redo->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    redo->setShortcut(QKeySequence::Redo);
    editMenu->addAction(undo);
    editMenu->addAction(redo);

    QToolBar* bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->addAction(open);
    bar->addAction(saveAction);
    bar->addSeparator();
    bar->addAction(undo);
    bar->addAction(redo);
}

void MainWindow::createViews()
{
    m_memberList = new MemberList(m_document, this);
    addDock(Qt::LeftDockWidgetArea, tr("Members"), m_memberList);
}

QDockWidget* MainWindow::addDock(Qt::DockWidgetArea area, const QString& title, QWidget* content)
{
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(content->objectName() + QStringLiteral("Dock"));
    dock->setFeatures(QDockWidget::DockWidgetMovable);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

void MainWindow::showStatus(const QString& text)
{
    statusBar()->showMessage(text);
}

bool MainWindow::openFile(const QString& fileName)
{
    try {
        m_document.open(fileName);
    } catch (const ModelFileError& error) {
        showStatus(error.message());
        QMessageBox::warning(this, tr("The model cannot be opened"), error.message());
        return false;
    }
    showStatus(tr("%1 opened").arg(QFileInfo(fileName).fileName()));
    return true;
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
    const QString fileName = QFileDialog::getSaveFileName(
        this, tr("Save the model"), m_document.fileName(), tr("Frame models (*.json)"));
    return !fileName.isEmpty() && saveTo(fileName);
}

bool MainWindow::saveTo(const QString& fileName)
{
    try {
        m_document.saveAs(fileName);
    } catch (const ModelFileError& error) {
        showStatus(error.message());
        QMessageBox::warning(this, tr("The model cannot be saved"), error.message());
        return false;
    }
    showStatus(tr("%1 saved").arg(QFileInfo(fileName).fileName()));
    return true;
}

bool MainWindow::mayDiscard()
{
    if (!m_document.isModified()) {
        return true;
    }
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, tr("Unsaved changes"), tr("The model has changes that are not saved."),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save) {
        return save();
    }
    return answer == QMessageBox::Discard;
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
    setWindowTitle(tr("%1[*] - Frame editor").arg(name));
    setWindowModified(m_document.isModified());
}

} // namespace frame_editor
