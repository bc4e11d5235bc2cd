#include "examples/frame_editor/main_window.h"

#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_overview.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/member_list.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/menu_titles.h"
#include "examples/frame_editor/model_file.h"
#include "examples/frame_editor/property_panel.h"
#include "examples/frame_editor/results_view.h"
#include "examples/frame_editor/unit_settings.h"
#include "examples/frame_editor/view_settings.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUndoStack>

namespace frame_editor {

MainWindow::MainWindow(Document& document, UnitSettings& units, const Form& form, QWidget* parent)
    : QMainWindow(parent)
    , m_document(document)
    , m_units(units)
{
    setObjectName(QStringLiteral("mainWindow"));
    // The views come first: they are what Tab goes through first.
    createViews(form);
    QToolBar* bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    createFileActions(*bar);
    createEditActions(*bar);
    createViewActions(*bar);
    createUnitChooser(*bar);
    connect(&document, &Document::fileChanged, this, &MainWindow::showFile);
    showFile();
    statusBar()->showMessage(tr("Ready"));
    resize(1400, 960);
}

MainWindow::~MainWindow()
{
    // While the window is whole: the field with the focus ends its editing now.
    hide();
}

PropertyPanel& MainWindow::panel() const
{
    return *m_panel;
}

Canvas& MainWindow::canvas() const
{
    return *m_canvas;
}

MemberTable& MainWindow::table() const
{
    return *m_table;
}

QString MainWindow::commitPending()
{
    // Only one of the two can be typed into at a time.
    const QString refusal = m_panel->commitPending();
    const QString tableRefusal = m_table->commitPending();
    return refusal.isEmpty() ? tableRefusal : refusal;
}

void MainWindow::restoreView(const QString& settingsFile)
{
    m_results->setState(loadFlags(settingsFile));
    connect(m_results, &ResultsView::stateChanged, this,
            [this, settingsFile] { saveFlags(m_results->state(), settingsFile); });
}

void MainWindow::createFileActions(QToolBar& bar)
{
    QMenu* menu = menuBar()->addMenu(MenuTitles().file);
    QAction* open = menu->addAction(style()->standardIcon(QStyle::SP_DialogOpenButton),
                                    tr("&Open..."), this, &MainWindow::openWithDialog);
    open->setShortcut(QKeySequence::Open);
    QAction* save = menu->addAction(style()->standardIcon(QStyle::SP_DialogSaveButton), tr("&Save"),
                                    this, &MainWindow::save);
    save->setShortcut(QKeySequence::Save);
    QAction* saveAs = menu->addAction(tr("Save &as..."), this, &MainWindow::saveWithDialog);
    saveAs->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    bar.addAction(open);
    bar.addAction(save);
    bar.addSeparator();
}

void MainWindow::createEditActions(QToolBar& bar)
{
    QMenu* menu = menuBar()->addMenu(MenuTitles().edit);
    QUndoStack& stack = m_document.undoStack();
    // What is being typed is a step of its own, and the first one to be undone.
    QAction* undo = menu->addAction(style()->standardIcon(QStyle::SP_ArrowBack), QString(), this,
                                    [this, &stack] {
                                        commitPending();
                                        stack.undo();
                                    });
    undo->setObjectName(QStringLiteral("undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = menu->addAction(style()->standardIcon(QStyle::SP_ArrowForward), QString(), this,
                                    [this, &stack] {
                                        commitPending();
                                        stack.redo();
                                    });
    redo->setObjectName(QStringLiteral("redo"));
    redo->setShortcut(QKeySequence::Redo);
    const auto show = [&stack, undo, redo] {
        undo->setText(stack.canUndo() ? tr("&Undo %1").arg(stack.undoText()) : tr("&Undo"));
        undo->setEnabled(stack.canUndo());
        redo->setText(stack.canRedo() ? tr("&Redo %1").arg(stack.redoText()) : tr("&Redo"));
        redo->setEnabled(stack.canRedo());
    };
    connect(&stack, &QUndoStack::indexChanged, undo, show);
    show();
    bar.addAction(undo);
    bar.addAction(redo);
    bar.addSeparator();
}

void MainWindow::createViewActions(QToolBar& bar)
{
    QMenu* menu = menuBar()->addMenu(MenuTitles().view);
    QAction* fit = menu->addAction(tr("&Fit to window"), m_canvas, &Canvas::fitToWindow);
    fit->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    bar.addAction(fit);
    bar.addSeparator();
    QAction* table = m_tableDock->toggleViewAction();
    table->setShortcut(QKeySequence(QStringLiteral("Ctrl+T")));
    menu->addAction(table);
    connect(table, &QAction::triggered, m_table, [this](bool shown) {
        if (shown) {
            m_table->setFocus(Qt::ShortcutFocusReason);
        }
    });
    menu->addSeparator();
    const QStringList forms = formFiles();
    for (const QString& fileName : forms) {
        menu->addAction(tr("Form \"%1\"").arg(QFileInfo(fileName).completeBaseName()), this,
                        [this, fileName] { openForm(fileName); });
    }
    menu->addAction(tr("&Open a form..."), this, &MainWindow::openFormWithDialog);
}

void MainWindow::createUnitChooser(QToolBar& bar)
{
    auto* label = new QLabel(MenuTitles().units, &bar);
    label->setObjectName(QStringLiteral("unitsLabel"));
    auto* chooser = new QComboBox(&bar);
    chooser->setObjectName(QStringLiteral("units"));
    chooser->setAccessibleName(tr("Units"));
    chooser->setToolTip(tr("The units of length, thickness, load and elastic modulus"));
    for (int column = 0; column < UnitSettings::columnCount; ++column) {
        chooser->addItem(columnName(column));
    }
    chooser->setCurrentIndex(m_units.column());
    label->setBuddy(chooser);
    bar.addWidget(label);
    bar.addWidget(chooser);
    connect(chooser, qOverload<int>(&QComboBox::currentIndexChanged), &m_units,
            &UnitSettings::setColumn);
    connect(&m_units, &UnitSettings::changed, chooser,
            [this, chooser] { chooser->setCurrentIndex(m_units.column()); });
}

void MainWindow::createViews(const Form& form)
{
    QDockWidget* members =
        addDock(Qt::LeftDockWidgetArea, tr("Members"), new MemberList(m_document, this));
    m_panel = new PropertyPanel(m_document, m_units, form, this);
    QDockWidget* properties = addDock(Qt::RightDockWidgetArea, tr("Properties"), m_panel);
    m_results = new ResultsView(m_document, m_units, this);
    addDock(Qt::LeftDockWidgetArea, tr("Results"), m_results);
    resizeDocks({members, properties}, {270, 470}, Qt::Horizontal);
    connect(m_panel, &PropertyPanel::told, this, &MainWindow::showStatus);
    createCanvas();
    createTable();
}

void MainWindow::createTable()
{
    m_table = new MemberTable(m_document, m_units, this);
    m_tableDock = addDock(Qt::BottomDockWidgetArea, tr("Table of members"), m_table);
    m_tableDock->setFeatures(m_tableDock->features() | QDockWidget::DockWidgetClosable);
    // The properties are long, the table is wide.
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::BottomDockWidgetArea);
    resizeDocks({m_tableDock}, {m_table->sizeHint().height()}, Qt::Vertical);
    connect(m_table, &MemberTable::told, this, &MainWindow::showStatus);
    connect(m_table, &MemberTable::zoomRequested, m_canvas, &Canvas::zoomToMember);
}

void MainWindow::createCanvas()
{
    m_canvas = new Canvas(m_document, this);
    setCentralWidget(m_canvas);
    connect(&m_units, &UnitSettings::changed, m_canvas, &Canvas::showUnits);
    addDock(Qt::LeftDockWidgetArea, tr("Overview"), new CanvasOverview(*m_canvas, this));
    auto* place = new QLabel(this);
    place->setObjectName(QStringLiteral("place"));
    statusBar()->addPermanentWidget(place);
    connect(m_canvas, &Canvas::pointedAt, place, [place](const QString& text) {
        // It changes with each move of the mouse. A label of fixed size, which only grows, keeps
        // the window from being laid out anew each time.
        place->setText(text);
        const QSize needed = place->sizeHint().expandedTo(place->minimumSize());
        if (needed != place->minimumSize()) {
            place->setFixedSize(needed);
        }
    });
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

void MainWindow::select(const QStringList& names)
{
    QVector<int> members;
    QStringList unknown;
    for (const QString& name : names) {
        const int member = m_document.model().findMember(name);
        if (member >= 0) {
            members << member;
        } else {
            unknown << name;
        }
    }
    m_document.selection().set(members);
    if (!unknown.isEmpty()) {
        showStatus(tr("There is no member \"%1\"").arg(unknown.join(QStringLiteral("\", \""))));
    }
}

bool MainWindow::openFile(const QString& fileName)
{
    try {
        m_document.open(fileName);
    } catch (const FileError& error) {
        showStatus(error.message());
        QMessageBox::warning(this, tr("The model cannot be opened"), error.message());
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
        QMessageBox::warning(this, tr("The form cannot be used"), error.message());
        return false;
    }
    showStatus(tr("Form: %1").arg(m_panel->form().title));
    return true;
}

void MainWindow::openFormWithDialog()
{
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
    const QString fileName = QFileDialog::getSaveFileName(
        this, tr("Save the model"), m_document.fileName(), tr("Frame models (*.json)"));
    return !fileName.isEmpty() && saveTo(fileName);
}

bool MainWindow::saveTo(const QString& fileName)
{
    const QString refusal = commitPending();
    try {
        m_document.saveAs(fileName);
    } catch (const FileError& error) {
        showStatus(error.message());
        QMessageBox::warning(this, tr("The model cannot be saved"), error.message());
        return false;
    }
    const QString saved = tr("%1 saved").arg(QFileInfo(fileName).fileName());
    showStatus(refusal.isEmpty() ? saved : saved + QStringLiteral("; ") + refusal);
    return true;
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
    const QMessageBox::StandardButton answer =
        QMessageBox::question(this, tr("Unsaved changes"), reasons.join(QLatin1Char('\n')),
                              QMessageBox::Discard | QMessageBox::Cancel |
                                  (modified ? QMessageBox::Save : QMessageBox::NoButton),
                              modified ? QMessageBox::Save : QMessageBox::Cancel);
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
