#include "engine/presentation/ViewObject.h"

#include <utility>

#include "engine/core/EventView.h"
#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"

namespace ot {

ViewObject::ViewObject() {
  setSolidness(SPECTRAL);
  setAltitude(MAX_ALTITUDE);
  setType("ViewObject");
  setLocation(TOP_CENTER);
  registerInterest(VIEW_EVENT);
  // A new item goes out whole.
  setModified(getModified() | VALUE | APPEARANCE);
}

int ViewObject::setPosition(Vector position) {
  if (position == getPosition()) return 0;
  m_location = -1;
  int result = Object::setPosition(position);
  setModified(getModified() | APPEARANCE);
  return result;
}

int ViewObject::eventHandler(const Event* p_e) {
  if (p_e->getType() != VIEW_EVENT) return Object::eventHandler(p_e);
  // Checked: a plain Event could carry the label too.
  auto* p_view_event = dynamic_cast<const EventView*>(p_e);
  if (!p_view_event || p_view_event->getTag() != m_view_string) return 0;
  if (p_view_event->getDelta())
    setValue(m_value + p_view_event->getValue());
  else
    setValue(p_view_event->getValue());
  return 1;
}

int ViewObject::draw() {
  std::string text = m_view_string;
  if (m_draw_value) text += " " + ot::toString(m_value);
  if (m_border) text = " " + text + " ";
  const DisplayManager& display = DisplayManager::getInstance();
  Vector p = viewToWorld(getPosition());
  int result = display.drawString(p, text, CENTER_JUSTIFIED, m_color);
  if (!m_border) return result;
  // The frame has no corners: lines as long as the text, bars just beyond.
  int n = static_cast<int>(text.size());
  std::string line(static_cast<size_t>(n), '-');
  result += display.drawString(Vector(p.getX(), p.getY() - 1), line, CENTER_JUSTIFIED, m_color);
  result += display.drawString(Vector(p.getX(), p.getY() + 1), line, CENTER_JUSTIFIED, m_color);
  float left = p.getX() - static_cast<float>(n / 2) - 1;
  result += display.drawCh(Vector(left, p.getY()), '|', m_color, 0);
  result += display.drawCh(Vector(left + static_cast<float>(n) + 1, p.getY()), '|', m_color, 0);
  return result;
}

void ViewObject::setLocation(int location) {
  if (location < TOP_LEFT || location > BOTTOM_RIGHT) {
    LogManager::getInstance().writeLog(
        "ViewObject::setLocation(): Warning! Location out of range (%d). Ignored.", location);
    return;
  }
  if (location == m_location) return;
  // The place is taken from the view's size now; later resizes don't move it.
  Box view = WorldManager::getInstance().getView();
  float w = view.getHorizontal();
  float h = view.getVertical();
  float x = 0;
  switch (location % 3) {
    case 0: x = w * 1 / 6; break;
    case 1: x = (location == CENTER_CENTER) ? w / 2 : w * 3 / 6; break;
    default: x = w * 5 / 6; break;
  }
  // A frame takes a line above and one below the text.
  float y = 0;
  switch (location / 3) {
    case 0: y = m_border ? 1 : 0; break;
    case 1: y = m_border ? h / 2 : h / 2 - 1; break;
    default: y = m_border ? h - 2 : h - 1; break;
  }
  // setPosition frees the item from its location, so the location comes after.
  setPosition(Vector(x, y));
  m_location = location;
  setModified(getModified() | APPEARANCE);
}

void ViewObject::setDrawValue(bool draw_value) {
  if (draw_value == m_draw_value) return;
  m_draw_value = draw_value;
  setModified(getModified() | APPEARANCE);
}

void ViewObject::setValue(int value) {
  if (value == m_value) return;
  m_value = value;
  setModified(getModified() | VALUE);
}

void ViewObject::setBorder(bool border) {
  if (border == m_border) return;
  m_border = border;
  setModified(getModified() | APPEARANCE);
  if (m_location != -1) {
    // The same location again, but it has to be computed anew for this border.
    int location = m_location;
    m_location = -1;
    setLocation(location);
  }
}

void ViewObject::setColor(Color color) {
  if (color == m_color) return;
  m_color = color;
  setModified(getModified() | APPEARANCE);
}

void ViewObject::setViewString(std::string view_string) {
  if (view_string == m_view_string) return;
  m_view_string = std::move(view_string);
  setModified(getModified() | APPEARANCE);
}

bool ViewObject::operator==(const ViewObject& other) const {
  return Object::operator==(other) && m_view_string == other.m_view_string && m_value == other.m_value &&
         m_draw_value == other.m_draw_value && m_border == other.m_border && m_color == other.m_color &&
         m_location == other.m_location;
}

std::string ViewObject::toString() const {
  // Checked here since -1 is no Location; the text is the one toString gives too.
  bool located = m_location >= TOP_LEFT && m_location <= BOTTOM_RIGHT;
  std::string location = located ? ot::toString(static_cast<Location>(m_location)) : "unknown";
  return Object::toString() + ", " + m_view_string + ", " + ot::toString(m_value) + ", value " +
         ot::toString(m_draw_value) + ", border " + ot::toString(m_border) + ", " + ot::toString(m_color) +
         ", " + location;
}

}  // namespace ot
