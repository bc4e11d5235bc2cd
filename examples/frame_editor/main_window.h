#pragma once

#include <QMainWindow>

class QComboBox;
class QDockWidget;
class QMenu;
class QToolBar;

namespace frame_editor {

class Canvas;
class Document;
class MemberList;
class MemberTable;
class PropertyPanel;
class ResultsView;
class UnitSettings;
struct Form;

/// The window on one document: its views stand in docks, its actions in menus and a tool bar.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// Document and settings have to outlive the window.
    MainWindow(Document& document, UnitSettings& units, const Form& form,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    PropertyPanel& panel() const;
    Canvas& canvas() const;
    MemberTable& table() const;

    /// Shows the view as the user left it, and keeps his changes of it in that file. Without this
    /// call the view is that of a first start.
    void restoreView(const QString& settingsFile);

    /// Opens a model file in place of the present one. A file that cannot be read is told of in a
    /// message box, and the open model stays.
    /// @return whether the file is open now
    bool openFile(const QString& fileName);

    /// Shows the properties in the form of a file. A file that cannot be read is told of in a
    /// message box, and the present form stays.
    bool openForm(const QString& fileName);

    /// Shows one line in the status bar until the next one comes.
    void showStatus(const QString& text);

    /// Selects members by their names; a name that nobody has is told of in the status bar.
    void select(const QStringList& names);

public Q_SLOTS:
    /// Asks for the fate of changes and for a file.
    void openWithDialog();
    void openFormWithDialog();
    /// Saves to the file of the document, asking for one if it has none.
    /// @return whether the model is saved
    bool save();
    bool saveWithDialog();
    /// Takes the selected members out of the model. What is being typed counts first; a text that
    /// is refused is told of, and then nothing is deleted.
    void deleteSelected();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void createFileActions(QToolBar& bar);
    void createEditActions(QToolBar& bar);
    void createHistoryActions(QMenu& menu, QToolBar& bar);
    void createDeletion(QMenu& menu);
    void createViewActions(QToolBar& bar);
    void createUnitChooser(QToolBar& bar);
    void createViews(const Form& form);
    void createCanvas();
    void createTable();
    /// Ends the editing of what is being typed anywhere.
    /// @return why it is refused, or an empty text
    QString commitPending();
    /// Tells what came of an action, and of a text that was refused before it.
    void tell(const QString& outcome, const QString& refusal);
    QDockWidget* addDock(Qt::DockWidgetArea area, const QString& title, QWidget* content);
    bool saveTo(const QString& fileName);
    void warn(const QString& title, const QString& text);
    /// Whether the present model may go: it is saved, or the user gave it up.
    bool mayDiscard();
    void showFile();

    Document& m_document;
    UnitSettings& m_units;
    MemberList* m_list = nullptr;
    PropertyPanel* m_panel = nullptr;
    ResultsView* m_results = nullptr;
    Canvas* m_canvas = nullptr;
    MemberTable* m_table = nullptr;
    QDockWidget* m_tableDock = nullptr;
};

} // namespace frame_editor
