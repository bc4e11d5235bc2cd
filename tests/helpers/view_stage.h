#pragma once

#include <QApplication>
#include <QCursor>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "qt/inc/graphics/editor_view.h"

namespace zel::test {

/// A view on the screen whose viewport begins at (100, 100) and is 400 by 300 pixels, so that at
/// first its pixels are the scene's units from (0, 0); and a user's mouse, which starts outside.
/// Positions are those of the viewport.
class ViewStage
{
public:
    explicit ViewStage(qt::graphics::EditorView& view, const QPoint& topLeft = {100, 100})
        : m_view(view)
    {
        QCursor::setPos(0, 0);
        m_view.setFrameShape(QFrame::NoFrame);
        m_view.scene()->setSceneRect(-1e4, -1e4, 2e4, 2e4);
        m_view.resize(400, 300);
        m_view.move(topLeft);
        m_view.setCenter(QPointF(200, 150), false);
        m_view.show();
        m_shown = QTest::qWaitForWindowExposed(&m_view);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] bool shown() const
    {
        return m_shown;
    }

    /// Moves the mouse pointer; enter, leave, hover and move events follow as on a desktop.
    void moveMouse(const QPoint& pos)
    {
        QCursor::setPos(m_view.viewport()->mapToGlobal(pos));
        QCoreApplication::processEvents();
    }
    /// Somewhere outside of the view.
    void moveMouseAway()
    {
        moveMouse(QPoint(-50, -50));
    }

    void press(Qt::MouseButton button, const QPoint& pos)
    {
        QTest::mousePress(m_view.windowHandle(), button, {}, pos);
    }
    void release(Qt::MouseButton button, const QPoint& pos)
    {
        QTest::mouseRelease(m_view.windowHandle(), button, {}, pos);
    }
    /// Presses at `from`, goes to `to` and releases there.
    void drag(Qt::MouseButton button, const QPoint& from, const QPoint& to)
    {
        moveMouse(from);
        press(button, from);
        moveMouse(to);
        release(button, to);
    }

    /// Turns the wheel by `angle` eighths of a degree.
    void turnWheel(const QPoint& pos, const QPoint& angle)
    {
        QWheelEvent event(pos, m_view.viewport()->mapToGlobal(pos), {}, angle, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_view.viewport(), &event);
    }

    /// The scene point in the middle of the viewport, as the view shows it.
    [[nodiscard]] QPointF shownCenter() const
    {
        return m_view.mapToScene(m_view.rect()).boundingRect().center();
    }

private:
    qt::graphics::EditorView& m_view;
    bool m_shown = false;
};

/// Counts the events of one type that an object gets.
class EventCount : public QObject
{
public:
    EventCount(QObject* watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    /// The number since the last call.
    int take()
    {
        return std::exchange(m_count, 0);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_count += event->type() == m_type ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

private:
    QEvent::Type m_type;
    int m_count = 0;
};

} // namespace zel::test
