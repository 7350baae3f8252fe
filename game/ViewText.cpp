#include "game/ViewText.h"

#include "engine/world/Geometry.h"

int drawViewString(ot::Vector view_pos, const std::string& text, ot::Justification just, ot::Color color) {
  return ot::DisplayManager::getInstance().drawString(ot::viewToWorld(view_pos), text, just, color);
}
