#include "examples/frame_editor/main_window.h"

#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_overview.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/member_list.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/menu_titles.h"
#include "examples/frame_editor/name_list.h"
#include "examples/frame_editor/property_panel.h"
#include "examples/frame_editor/results_view.h"
#include "examples/frame_editor/unit_settings.h"
#include "examples/frame_editor/view_settings.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUndoStack>

namespace frame_editor {

namespace {

/// A view that scrolls upwards and downwards where the screen has less room than it needs.
class ScrolledView : public QScrollArea
{
public:
    explicit ScrolledView(QWidget* view)
        : QScrollArea(view->parentWidget())
    {
        setObjectName(view->objectName() + QStringLiteral("Area"));
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        setWidget(view);
        setMinimumWidth(view->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width());
    }

    /// All of the view, of which the base has a limit.
    QSize sizeHint() const override
    {
        return widget()->sizeHint();
    }
};

} // namespace

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

bool MainWindow::event(QEvent* event)
{
    // A menu that is opened would take the last message away, with a tip that it does not have.
    return event->type() == QEvent::StatusTip || QMainWindow::event(event);
}

void MainWindow::tell(const QString& outcome, const QString& refusal)
{
    showStatus(refusal.isEmpty() ? outcome : tr("%1; %2").arg(outcome, refusal));
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
    createHistoryActions(*menu, bar);
    menu->addSeparator();
    createDeletion(*menu);
    bar.addSeparator();
}

void MainWindow::createHistoryActions(QMenu& menu, QToolBar& bar)
{
    QUndoStack& stack = m_document.undoStack();
    // What is being typed is a step of its own, and the first one to be undone.
    QAction* undo = menu.addAction(style()->standardIcon(QStyle::SP_ArrowBack), QString(), this,
                                   [this, &stack] {
                                       const QString refusal = commitPending();
                                       const QString step = stack.undoText();
                                       stack.undo();
                                       tell(tr("%1: undone").arg(step), refusal);
                                   });
    undo->setObjectName(QStringLiteral("undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = menu.addAction(style()->standardIcon(QStyle::SP_ArrowForward), QString(), this,
                                   [this, &stack] {
                                       const QString refusal = commitPending();
                                       if (stack.canRedo()) {
                                           const QString step = stack.redoText();
                                           stack.redo();
                                           tell(tr("%1: redone").arg(step), refusal);
                                       }
                                   });
    redo->setObjectName(QStringLiteral("redo"));
    QList<QKeySequence> redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    const QKeySequence usual(QStringLiteral("Ctrl+Y")); // on other systems than some of ours
    if (!redoKeys.contains(usual)) {
        redoKeys << usual;
    }
    redo->setShortcuts(redoKeys);
    const auto show = [&stack, undo, redo] {
        undo->setText(stack.canUndo() ? tr("&Undo %1").arg(withoutMnemonic(stack.undoText()))
                                      : tr("&Undo"));
        undo->setEnabled(stack.canUndo());
        redo->setText(stack.canRedo() ? tr("&Redo %1").arg(withoutMnemonic(stack.redoText()))
                                      : tr("&Redo"));
        redo->setEnabled(stack.canRedo());
    };
    connect(&stack, &QUndoStack::indexChanged, undo, show);
    show();
    bar.addAction(undo);
    bar.addAction(redo);
}

void MainWindow::createDeletion(QMenu& menu)
{
    // In the table the key clears cells, as in a spreadsheet, and rows go by another one.
    QAction* deletion = menu.addAction(style()->standardIcon(QStyle::SP_TrashIcon), QString(), this,
                                       &MainWindow::deleteSelected);
    deletion->setObjectName(QStringLiteral("delete"));
    deletion->setShortcut(QKeySequence::Delete);
    deletion->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_list->addAction(deletion);
    m_canvas->addAction(deletion);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* rows = new QAction(deletion->icon(), QString(), this);
    rows->setObjectName(QStringLiteral("deleteRows"));
    rows->setShortcut(QKeySequence(QStringLiteral("Ctrl+-")));
    rows->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(rows, &QAction::triggered, this, &MainWindow::deleteSelected);
    m_table->addAction(rows);
    const auto show = [this, deletion, rows] {
        const QVector<int>& members = m_document.selection().members();
        const QString text =
            members.isEmpty() ? tr("&Delete")
            : members.size() == 1
                ? tr("&Delete %1")
                      .arg(
                          withoutMnemonic(m_document.model()
                                              .members.at(static_cast<std::size_t>(members.first()))
                                              .name))
                : tr("&Delete %n members", nullptr, members.size());
        for (QAction* action : {deletion, rows}) {
            action->setText(text);
            action->setEnabled(!members.isEmpty());
        }
    };
    connect(&m_document, &Document::selectionChanged, deletion, show);
    connect(&m_document, &Document::changed, deletion, show);
    show();
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
        const QString name = withoutMnemonic(QFileInfo(fileName).completeBaseName());
        menu->addAction(tr("Form \"%1\"").arg(name), this,
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
    m_list = new MemberList(m_document, this);
    QDockWidget* members = addDock(Qt::LeftDockWidgetArea, tr("Members"), m_list);
    m_panel = new PropertyPanel(m_document, m_units, form, this);
    QDockWidget* properties = addDock(Qt::RightDockWidgetArea, tr("Properties"), m_panel);
    m_results = new ResultsView(m_document, m_units, this);
    addDock(Qt::LeftDockWidgetArea, tr("Results"), new ScrolledView(m_results));
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
    connect(m_canvas, &Canvas::told, this, &MainWindow::showStatus);
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

void MainWindow::deleteSelected()
{
    const QVector<int> members = m_document.selection().members();
    if (members.isEmpty() || m_canvas->hasGesture()) {
        return;
    }
    const QString refusal = commitPending();
    if (!refusal.isEmpty()) {
        tell(refusal, tr("nothing is deleted"));
        return;
    }
    // With its members the panel is disabled, and hands the focus on to wherever.
    if (m_panel->isAncestorOf(QApplication::focusWidget())) {
        m_list->setFocus(Qt::OtherFocusReason);
    }
    const QStringList idle = m_document.model().nodesOnlyOf(members);
    m_document.removeMembers(members);
    const QString step = m_document.undoStack().undoText();
    tell(tr("%1: done").arg(step),
         idle.isEmpty() ? QString()
                        : tr("nodes that stay without a member: %1").arg(nameList(idle)));
}

} // namespace frame_editor
