#include "qt/graphics/graphics_scene.h"

namespace zel::qt::graphics {

GraphicsScene::GraphicsScene(QObject* parent)
    : QGraphicsScene(parent)
{}

GraphicsScene::~GraphicsScene() = default;

} // namespace zel::qt::graphics
