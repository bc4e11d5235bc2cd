#pragma once

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/main_window.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/property_panel.h"
#include "examples/frame_editor/unit_settings.h"
#include "tests/helpers/active_window.h"

#include "qt/inc/controls.h"

#include <QLineEdit>
#include <QStatusBar>
#include <QUndoStack>

#include <stdexcept>

namespace zel::test {

/// The frame editor on the portal frame, its window shown and active.
///
/// Members of that frame: 0 C1, 1 C2, 2 R1, 3 R2, 4 R3, 5 R4, 6 P1, 7 B1, 8 B2, 9 T1, 10 L1 (a
/// rigid link).
struct EditorStage
{
    explicit EditorStage(const char* model = "portal_frame.json")
    {
        document.open(QStringLiteral(FRAME_EDITOR_MODELS "/") + QLatin1String(model));
        if (!showActive(window)) {
            throw std::runtime_error("the window does not become active");
        }
    }

    frame_editor::PropertyField& field(const char* property)
    {
        frame_editor::PropertyField* found = window.panel().field(QLatin1String(property));
        if (!found) {
            throw std::runtime_error(std::string("no field ") + property);
        }
        return *found;
    }

    QLineEdit& edit(const char* property)
    {
        return field(property).lineEdit()->edit();
    }
    QString text(const char* property)
    {
        return edit(property).text();
    }

    template <class Widget>
    Widget& inside(const char* property)
    {
        auto* found = field(property).editor()->findChild<Widget*>();
        if (!found) {
            throw std::runtime_error(std::string("nothing such inside ") + property);
        }
        return *found;
    }

    const frame_editor::Member& member(int index) const
    {
        return document.model().members.at(std::size_t(index));
    }

    void select(const QVector<int>& members)
    {
        document.selection().set(members);
    }

    /// Goes to the field and types over what is there; does not end the editing.
    void type(const char* property, const QString& typed)
    {
        edit(property).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&edit(property), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&edit(property), Qt::Key_Delete);
        QTest::keyClicks(&edit(property), typed);
    }

    void enter(const char* property, const QString& typed)
    {
        type(property, typed);
        QTest::keyClick(&edit(property), Qt::Key_Return);
    }

    void tab()
    {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }

    QString status() const
    {
        return window.statusBar()->currentMessage();
    }
    int steps() const
    {
        return document.undoStack().count();
    }

    frame_editor::Document document;
    frame_editor::UnitSettings units;
    frame_editor::MainWindow window{document, units, frame_editor::builtInForm()};
};

} // namespace zel::test
