#pragma once

#include <string>

#include "engine/core/Types.h"
#include "engine/world/Object.h"

namespace ot {

// A HUD item: a label with an optional number, fixed to the view rather than
// the world, with an optional frame of text around it. It takes new values
// from EventView events whose tag equals its view string, so the game feeds
// the HUD without knowing its items. Lives in the world like any object.
//
//   auto* p_gold = new ViewObject;
//   p_gold->setLocation(TOP_CENTER);
//   p_gold->setViewString("Gold");
//   ...
//   EventView ev("Gold", 5, true);
//   WorldManager::getInstance().onEvent(&ev);  // adds 5
class ViewObject : public Object {
 public:
  // Modified bits past Object's: the value alone, and every other view
  // attribute (text, place, frame, colour) together.
  static constexpr unsigned int VALUE = 0x40000;
  static constexpr unsigned int APPEARANCE = 0x80000;

  ViewObject();
  ~ViewObject() override = default;

  // An explicit place in view coordinates; frees the item from its location.
  int setPosition(Vector position) override;
  // Takes EventView values for its tag; 1 when taken.
  int eventHandler(const Event* p_e) override;
  // The text and its frame; the sum of the drawing results.
  int draw() override;

  // One of the nine places, computed from the view's present size; anything
  // but TOP_LEFT to BOTTOM_RIGHT is refused with a warning.
  virtual void setLocation(int location);
  virtual void setDrawValue(bool draw_value = true);
  virtual void setValue(int value);
  // The frame takes a line above and below, so a located item moves with it.
  virtual void setBorder(bool border);
  virtual void setColor(Color color);
  virtual void setViewString(std::string view_string);

  int getLocation() const { return m_location; }
  bool getDrawValue() const { return m_draw_value; }
  int getValue() const { return m_value; }
  bool getBorder() const { return m_border; }
  Color getColor() const { return m_color; }
  std::string getViewString() const { return m_view_string; }

  // Object's attributes, then the value and the appearance under the same
  // mask; the result of checkStream.
  int serialize(std::stringstream* p_ss, unsigned int attr = 0) override;
  // Reading marks the value and appearance as changed again, unlike Object's
  // attributes.
  int deserialize(std::stringstream* p_ss, unsigned int* p_a = nullptr) override;

  bool operator==(const ViewObject& other) const;
  std::string toString() const;

 private:
  std::string m_view_string;
  int m_value = 0;
  bool m_draw_value = true;
  bool m_border = true;
  Color m_color = WHITE;
  int m_location = -1;  // -1 when placed by position
};

}  // namespace ot
