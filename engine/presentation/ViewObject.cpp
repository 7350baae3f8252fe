#include "engine/presentation/ViewObject.h"

#include <cstdint>
#include <utility>

#include "engine/core/EventView.h"
#include "engine/core/LogManager.h"
#include "engine/core/Utility.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// -1, a place given by position, is no Location; its text is the one any
// unknown location gets.
std::string locationText(int location) {
  bool located = location >= TOP_LEFT && location <= BOTTOM_RIGHT;
  return located ? ot::toString(static_cast<Location>(location)) : "unknown";
}

}  // namespace

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
  // Whole cells, as drawString centres the text.
  float left = p.getX() - static_cast<float>(n / 2) - 1;  // NOLINT(bugprone-integer-division)
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

int ViewObject::serialize(std::stringstream* p_ss, unsigned int attr) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_LINES, "ViewObject::serialize(): serializing attributes");
  log.writeLog(LOG_LINES, "ViewObject::serialize(): attr is %u, modified is %u (%s)", attr, getModified(),
               isModified() ? "true" : "false");
  // With no mask given, the mask written there is the whole modified one, so
  // it announces this item's own fields as well.
  Object::serialize(p_ss, attr);
  unsigned int modified = getModified();
  auto wanted = [&](unsigned int bit) { return takeForWriting(bit, attr, &modified); };
  if (wanted(VALUE)) {
    log.writeLog(LOG_TRACE, "\tVALUE");
    writeRaw(p_ss, m_value);
  }
  if (wanted(APPEARANCE)) {
    log.writeLog(LOG_TRACE, "\tAPPEARANCE");
    writeString(p_ss, m_view_string);
    log.writeLog(LOG_TRACE, "\tVIEW_STRING: %s", m_view_string.c_str());
    writeRaw(p_ss, m_border);
    log.writeLog(LOG_TRACE, "\tBORDER: %s", ot::toString(m_border).c_str());
    writeRaw(p_ss, m_color);
    log.writeLog(LOG_TRACE, "\tCOLOR: %s", ot::toString(m_color).c_str());
    writeRaw(p_ss, m_location);
    log.writeLog(LOG_TRACE, "\tLOCATION: %s", locationText(m_location).c_str());
    writeRaw(p_ss, m_draw_value);
    log.writeLog(LOG_TRACE, "\tDRAW_VALUE: %s", ot::toString(m_draw_value).c_str());
  }
  setModified(modified);
  return checkStream("ViewObject::serialize()", p_ss);
}

int ViewObject::deserialize(std::stringstream* p_ss, unsigned int* p_a) {
  LogManager& log = LogManager::getInstance();
  unsigned int local_attr = 0;
  if (!p_a) p_a = &local_attr;
  int result = Object::deserialize(p_ss, p_a);
  if (result != 0) {
    log.writeLog("ViewObject::deserialize(): Error calling Object::deserialize().");
    return result;
  }
  const unsigned int attr = *p_a;
  log.writeLog(LOG_LINES, "ViewObject::deserialize(): attr %u (%s)", attr, toBinaryString(attr).c_str());
  if (attr & VALUE) {
    int value = readOver(p_ss, m_value);
    setValue(value);
    log.writeLog(LOG_TRACE, "\tVALUE: %d", value);
  }
  if (attr & APPEARANCE) {
    std::uint64_t length = 0;
    readRaw(p_ss, &length);
    std::string view_string = m_view_string;
    // Reading goes on after a failed buffer, out of step with the stream.
    if (readStringBytes(p_ss, length, &view_string) != 0)
      log.writeLog("ViewObject::deserialize(): Error! Cannot allocate %d bytes.",
                   static_cast<int>(length + 1));
    else
      setViewString(view_string);
    bool border = readOver(p_ss, m_border);
    setBorder(border);
    Color color = readOver(p_ss, m_color);
    setColor(color);
    int location = readOver(p_ss, m_location);
    setLocation(location);
    bool draw_value = readOver(p_ss, m_draw_value);
    setDrawValue(draw_value);
  }
  // The setters above marked this item's own bits, and they stay marked.
  log.writeLog(LOG_LINES, "ViewObject::deserialize(): done checking all types.");
  return checkStream("ViewObject::deserialize()", p_ss);
}

bool ViewObject::operator==(const ViewObject& other) const {
  return Object::operator==(other) && m_view_string == other.m_view_string && m_value == other.m_value &&
         m_draw_value == other.m_draw_value && m_border == other.m_border && m_color == other.m_color &&
         m_location == other.m_location;
}

std::string ViewObject::toString() const {
  return Object::toString() + ", " + m_view_string + ", " + ot::toString(m_value) + ", value " +
         ot::toString(m_draw_value) + ", border " + ot::toString(m_border) + ", " + ot::toString(m_color) +
         ", " + locationText(m_location);
}

}  // namespace ot
