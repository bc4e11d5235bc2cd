#pragma once

#include "examples/frame_editor/canvas.h"
#include "examples/frame_editor/canvas_items.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_selection.h"

#include <QApplication>
#include <QCursor>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <functional>

namespace frame_editor {

inline const QString portalFrame = QStringLiteral(FRAME_EDITOR_MODELS "/portal_frame.json");
inline const QString multiStorey = QStringLiteral(FRAME_EDITOR_MODELS "/multi_storey.json");

/// A canvas on the screen with the portal frame, and a user's mouse.
struct Stage
{
    explicit Stage(const QString& file = portalFrame)
        : canvas(document, nullptr)
    {
        QCursor::setPos(0, 0);
        document.open(file);
        canvas.resize(600, 500);
        canvas.move(100, 100);
        canvas.show();
        shown = QTest::qWaitForWindowExposed(&canvas);
        QCoreApplication::processEvents();
    }

    const Node& node(const char* name)
    {
        return document.model().nodes.at(
            static_cast<std::size_t>(document.model().findNode(QLatin1String(name))));
    }
    NodeGrip* grip(const char* name)
    {
        return canvas.nodeGrips().at(
            static_cast<std::size_t>(document.model().findNode(QLatin1String(name))));
    }
    int member(const char* name)
    {
        return document.model().findMember(QLatin1String(name));
    }
    MemberItem* item(const char* name)
    {
        return canvas.memberItems().at(static_cast<std::size_t>(member(name)));
    }

    QPoint pixelOf(const char* nodeName)
    {
        return canvas.mapFromScene(grip(nodeName)->pos());
    }
    /// A place on the member, apart from nodes and other members.
    QPoint pixelOn(const char* memberName, double part = 0.3)
    {
        return canvas.mapFromScene(item(memberName)->axis().pointAt(part));
    }

    void moveMouse(const QPoint& pos)
    {
        QCursor::setPos(canvas.viewport()->mapToGlobal(pos));
        QCoreApplication::processEvents();
    }
    void press(const QPoint& pos, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {})
    {
        moveMouse(pos);
        QTest::mousePress(canvas.windowHandle(), button, modifiers, pos);
    }
    void release(const QPoint& pos, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = {})
    {
        moveMouse(pos);
        QTest::mouseRelease(canvas.windowHandle(), button, modifiers, pos);
    }
    void click(const QPoint& pos, Qt::KeyboardModifiers modifiers = {})
    {
        press(pos, Qt::LeftButton, modifiers);
        release(pos, Qt::LeftButton, modifiers);
        // Two clicks on different things are no double click.
        QTest::qWait(0);
    }
    void turnWheel(const QPoint& pos, int delta)
    {
        QWheelEvent event(pos, canvas.viewport()->mapToGlobal(pos), {}, QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas.viewport(), &event);
    }
    QImage shot()
    {
        return canvas.viewport()->grab().toImage();
    }
    QVector<int> selected()
    {
        return document.selection().members();
    }

    Document document;
    Canvas canvas;
    bool shown = false;
};

/// The pixels of about this colour in a part of a picture.
inline int countPixels(const QImage& image, const QRect& part, const QColor& colour)
{
    int count = 0;
    const QRect rect = part & image.rect();
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += qAbs(pixel.red() - colour.red()) + qAbs(pixel.green() - colour.green()) +
                                 qAbs(pixel.blue() - colour.blue()) <
                             60
                         ? 1
                         : 0;
        }
    }
    return count;
}

inline QRect inked(const QImage& image)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white)) {
                rect |= QRect(x, y, 1, 1);
            }
        }
    }
    return rect;
}

template <class Draw>
QImage drawn(const Draw& draw)
{
    QImage image(200, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::blue);
    draw(painter);
    const bool restored = painter.pen().color() == QColor(Qt::blue);
    painter.end();
    return restored ? image : QImage();
}

inline FrameModel modelWith(const std::function<void(Member&)>& change)
{
    FrameModel model;
    model.sections.push_back({QStringLiteral("S"), 0.4, 0.2, 0.01, 0.02, 0, 0, 0, 0});
    model.nodes = {{QStringLiteral("A"), 0, 0}, {QStringLiteral("B"), 10, 0}};
    Member member;
    member.name = QStringLiteral("M");
    member.start = 0;
    member.end = 1;
    member.section = QStringLiteral("S");
    change(member);
    model.members.push_back(member);
    return model;
}

} // namespace frame_editor
