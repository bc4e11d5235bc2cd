#include "examples/frame_editor/canvas.h"

#include "examples/frame_editor/canvas_items.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/unit_settings.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace frame_editor {

namespace {

constexpr int lengthSet = 1001;

/// Within so many pixels of where it was, a coordinate of a node under way stays.
constexpr double steadyPixels = 3.5;

/// Room about the frame for signs and rulers, in pixels.
constexpr double fitMargin = 90.0;

/// A length as it is told; what shows as zero has no sign.
QString lengthText(double value)
{
    const zel::units::v1::Context& units = zel::units::v1::get_active_input_context();
    const QString zero = formatQuantity(units, lengthSet, 0.0);
    return formatQuantity(units, lengthSet, std::abs(value)) == zero
               ? zero
               : formatQuantity(units, lengthSet, value);
}

/// Adds or deletes items until there are `count`.
template <class Item>
void resizeItems(std::vector<Item*>& items, std::size_t count, const Canvas& canvas)
{
    while (items.size() > count) {
        delete items.back();
        items.pop_back();
    }
    while (items.size() < count) {
        items.push_back(new Item(canvas, static_cast<int>(items.size())));
        canvas.scene()->addItem(items.back());
    }
}

} // namespace

Canvas::Canvas(Document& document, QWidget* parent)
    : m_document(document)
{
    setParent(parent);
    setObjectName(QStringLiteral("canvas"));
    setAccessibleName(tr("Elevation"));
    setRulers(false, true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::ClickFocus);
    // The lettering of a drawing; the title and the labels of the ruler then have room.
    QFont lettering = font();
    lettering.setPixelSize(11);
    setFont(lettering);
    connect(&document, &Document::modelReplaced, this, [this] { m_otherModel = true; });
    connect(&document, &Document::changed, this, &Canvas::showModel);
    connect(&document, &Document::selectionChanged, this, &Canvas::showSelection);
    connect(&document, &Document::fileChanged, this, &Canvas::showFile);
    connect(scene(), &QGraphicsScene::selectionChanged, this, &Canvas::takeSelection);
    connect(this, &QGraphicsView::rubberBandChanged, this, &Canvas::finishRubberBand);
    mouseReleased.connect([this](QMouseEvent* event) { finishGesture(event->button()); });
    mouseMoved.connect([this](QMouseEvent* event) { tellPlace(event->pos()); });
    resized.connect([this] {
        if (m_fitted && getCenter() == m_fittedCenter && transform() == m_fittedTransform) {
            fitToWindow();
        }
    });
    showModel();
    showFile();
}

Canvas::~Canvas()
{
    // The items know the canvas, so they go before it; nobody is left to hear what they tell.
    scene()->disconnect(this);
    scene()->clear();
}

void Canvas::fitToWindow()
{
    const QRectF frame = frameRect();
    const double width = qMax(viewport()->width() - 2 * fitMargin, 20.0);
    const double height = qMax(viewport()->height() - 2 * fitMargin, 20.0);
    const double scale = qMin(width / frame.width(), height / frame.height());
    setTransform(QTransform::fromScale(scale, scale));
    setCenter(frame.center(), true);
    m_fitted = true;
    m_fittedCenter = getCenter();
    m_fittedTransform = transform();
    viewport()->update();
}

void Canvas::zoomToMember(int member)
{
    // So much of the canvas is the member itself; the rest is what it stands in.
    constexpr double part = 0.6;
    constexpr double least = 0.1;
    const QLineF axis = m_memberItems.at(static_cast<std::size_t>(member))->axis();
    const QRectF box = QRectF(axis.p1(), axis.p2()).normalized();
    const double scale = part * qMin(viewport()->width() / qMax(box.width(), least),
                                     viewport()->height() / qMax(box.height(), least));
    setTransform(QTransform::fromScale(scale, scale));
    setCenter(axis.center(), true);
    viewport()->update();
}

QRectF Canvas::frameRect() const
{
    QPolygonF nodes;
    for (const NodeGrip* grip : m_nodeGrips) {
        nodes << grip->pos();
    }
    constexpr double least = 1.0;
    const QRectF rect = nodes.boundingRect();
    const double x = qMax(0.0, least - rect.width()) / 2;
    const double y = qMax(0.0, least - rect.height()) / 2;
    return rect.adjusted(-x, -y, x, y);
}

void Canvas::showUnits()
{
    viewport()->update();
}

bool Canvas::hasGesture() const
{
    return scene()->mouseGrabberItem() != nullptr || !rubberBandRect().isNull();
}

bool Canvas::isShowingModel() const
{
    return m_showing;
}

QPointF Canvas::snapped(int node, const QPointF& pos) const
{
    const double pixel = std::abs(pixelSize().x());
    double step = 1.0;
    for (const double finer : {0.5, 0.1, 0.05, 0.01}) {
        step = finer >= pixel ? finer : step;
    }
    const Node& from = m_document.model().nodes.at(static_cast<std::size_t>(node));
    const auto snap = [step, pixel](double value, double origin) {
        const double steps = std::round((value - origin) / step);
        if (steps == 0 || std::abs(value - origin) < steadyPixels * pixel) {
            return origin;
        }
        // To the micrometre, so that adding up leaves no dust behind the decimals, nor a sign
        // before zero.
        return std::round((origin + steps * step) * 1e6) / 1e6 + 0.0;
    };
    return toScene(snap(pos.x(), from.x), snap(-pos.y(), from.y));
}

const std::vector<NodeGrip*>& Canvas::nodeGrips() const
{
    return m_nodeGrips;
}

const std::vector<MemberItem*>& Canvas::memberItems() const
{
    return m_memberItems;
}

void Canvas::showModel()
{
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        showNodes();
        showMembers();
    }
    showSelection();
    // So wide that a view which shows the whole frame can still be panned to any side of it.
    const QRectF frame = frameRect();
    const double margin = 5 * qMax(frame.width(), frame.height());
    scene()->setSceneRect(frame.adjusted(-margin, -margin, margin, margin));
    if (m_otherModel) {
        m_otherModel = false;
        fitToWindow();
    }
    viewport()->update();
}

void Canvas::showNodes()
{
    const std::vector<Node>& nodes = m_document.model().nodes;
    const std::size_t before = m_nodeGrips.size();
    resizeItems(m_nodeGrips, nodes.size(), *this);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        NodeGrip* const grip = m_nodeGrips[i];
        grip->setToolTip(nodes[i].name);
        grip->setPos(toScene(nodes[i].x, nodes[i].y));
        if (i >= before) {
            grip->positionChanged.connect([this, i] { placeMembers(static_cast<int>(i)); });
        }
    }
}

void Canvas::showMembers()
{
    const FrameModel& model = m_document.model();
    resizeItems(m_memberItems, model.members.size(), *this);
    m_largestLoad = 0.0;
    for (std::size_t i = 0; i < model.members.size(); ++i) {
        const Member& member = model.members[i];
        const bool isLink = member.kind == MemberKind::Link;
        const int section = isLink ? -1 : model.findSection(member.section);
        m_memberItems[i]->show(
            member, section < 0 ? nullptr : &model.sections[static_cast<std::size_t>(section)]);
        placeMember(i);
        m_largestLoad = qMax(m_largestLoad, std::abs(shownLoad(member)));
    }
}

/// Members go by the grips, which are ahead of the model while they are dragged.
void Canvas::placeMember(std::size_t index)
{
    const Member& member = m_document.model().members.at(index);
    m_memberItems[index]->setAxis(
        QLineF(m_nodeGrips.at(static_cast<std::size_t>(member.start))->pos(),
               m_nodeGrips.at(static_cast<std::size_t>(member.end))->pos()));
}

void Canvas::placeMembers(int node)
{
    if (m_showing) {
        return;
    }
    const std::vector<Member>& members = m_document.model().members;
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (members[i].start == node || members[i].end == node) {
            placeMember(i);
        }
    }
    viewport()->update();
}

void Canvas::showSelection()
{
    if (m_showing) {
        return;
    }
    const QScopedValueRollback<bool> showing(m_showing, true);
    const MemberSelection& selection = m_document.selection();
    for (MemberItem* item : m_memberItems) {
        item->setSelected(selection.contains(item->index()));
    }
}

void Canvas::showFile()
{
    const QString& name = m_document.fileName();
    setTitle(name.isEmpty() ? tr("Unnamed") : QFileInfo(name).fileName());
    viewport()->update();
}

void Canvas::takeSelection()
{
    if (m_showing) {
        return;
    }
    // What a rubber band holds changes with each move of the mouse; its end counts.
    m_selectionPending = !rubberBandRect().isNull();
    if (m_selectionPending) {
        return;
    }
    QVector<int> members;
    const QList<QGraphicsItem*> selected = scene()->selectedItems();
    for (const QGraphicsItem* item : selected) {
        if (const auto* member = dynamic_cast<const MemberItem*>(item)) {
            members << member->index();
        }
    }
    if (members.isEmpty() && !selected.isEmpty()) {
        // A node was picked up; the members that are being edited stay the ones selected.
        showSelection();
        return;
    }
    std::sort(members.begin(), members.end());
    m_document.selection().set(members);
}

void Canvas::takeMoves()
{
    std::vector<NodeMove> moves;
    const std::vector<Node>& nodes = m_document.model().nodes;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const QPointF pos = m_nodeGrips[i]->pos();
        if (pos != toScene(nodes[i].x, nodes[i].y)) {
            moves.push_back({static_cast<int>(i), pos.x(), -pos.y()});
        }
    }
    if (moves.empty()) {
        return;
    }
    const QString refusal = m_document.moveNodes(moves);
    if (!refusal.isEmpty()) {
        showModel();
    }
    Q_EMIT told(refusal.isEmpty() ? tr("%1: written").arg(m_document.undoStack().undoText())
                                  : refusal);
}

void Canvas::finishGesture(Qt::MouseButton released)
{
    QGraphicsItem* const grabbed = scene()->mouseGrabberItem();
    if (grabbed != nullptr && released == Qt::LeftButton) {
        // Another button is still down, which may pan; the drag was with this one and is over.
        grabbed->ungrabMouse();
    }
    if (scene()->mouseGrabberItem() == nullptr) {
        takeMoves();
    }
}

/// A rubber band ends with its button, or where the mouse is found without one.
void Canvas::finishRubberBand()
{
    if (m_selectionPending && rubberBandRect().isNull()) {
        takeSelection();
    }
}

void Canvas::tellPlace(const QPoint& pos)
{
    QPointF place = mapToScene(pos);
    QString name;
    const QGraphicsItem* item = scene()->mouseGrabberItem();
    item = item != nullptr ? item : itemAt(pos);
    if (const auto* grip = dynamic_cast<const NodeGrip*>(item)) {
        name = m_document.model().nodes.at(static_cast<std::size_t>(grip->index())).name +
               QStringLiteral("   ");
        place = grip->pos();
    }
    Q_EMIT pointedAt(tr("%1x %2   y %3").arg(name, lengthText(place.x()), lengthText(-place.y())));
}

void Canvas::mousePressEvent(QMouseEvent* event)
{
    EditorView::mousePressEvent(event);
    if (event->button() == Qt::RightButton) {
        // Cursors of items are set on the viewport, where they would hide that of a pan.
        viewport()->unsetCursor();
    }
}

void Canvas::leaveEvent(QEvent* event)
{
    EditorView::leaveEvent(event);
    Q_EMIT pointedAt(QString());
}

void Canvas::keyPressEvent(QKeyEvent* event)
{
    QGraphicsItem* const grabbed = scene()->mouseGrabberItem();
    if (event->key() == Qt::Key_Escape && grabbed != nullptr) {
        // The drag is given up: nodes go back to where the model has them.
        grabbed->ungrabMouse();
        showModel();
        event->accept();
        return;
    }
    EditorView::keyPressEvent(event);
}

} // namespace frame_editor
