#pragma once

#include <QGraphicsScene>

namespace zel::qt::graphics {

/// The scene of an EditorView: the one place for the behaviour of scenes, which so far is that of
/// QGraphicsScene. What characterises it is set by the view that makes it.
class GraphicsScene : public QGraphicsScene
{
public:
    explicit GraphicsScene(QObject* parent);
    ~GraphicsScene() override;
};

} // namespace zel::qt::graphics
