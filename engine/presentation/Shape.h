#pragma once

#include <sstream>
#include <string>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"

namespace ot {

// Departure: int as its type, like the enumerations in Types.h: a shape read from the
// network may carry any number, and must be able to hold it.
enum ShapeType : int {
  SHAPE_UNDEFINED = -1,
  SHAPE_CIRCLE = 0,
  SHAPE_SQUARE,
  SHAPE_TRIANGLE,
};

// A filled figure an object can be drawn as, beside or instead of its sprite;
// sizes are in pixels. All shapes are drawn through one shared SFML figure
// whose rotation, once a square has set it, stays for the rest of the run.
class Shape {
 public:
  Shape();

  // Stores the channels and makes the colour CUSTOM.
  void setColor(unsigned char r, unsigned char g, unsigned char b);
  void setColor(Color color) { m_color = color; }
  Color getColor() const { return m_color; }
  unsigned char getR() const { return m_r; }
  unsigned char getG() const { return m_g; }
  unsigned char getB() const { return m_b; }
  void setOpacity(unsigned char opacity) { m_opacity = opacity; }
  unsigned char getOpacity() const { return m_opacity; }
  void setSize(float size) { m_size = size; }
  float getSize() const { return m_size; }
  // Logs and ignores anything but -1 to 2.
  void setType(int type);
  int getType() const { return m_type; }

  // Compares colour, type and size, and r, g, b only for CUSTOM; not opacity.
  bool operator==(const Shape& other) const;
  bool operator!=(const Shape& other) const;

  // Points of the figure drawn: a circle's size cut to a whole number and held
  // between 3 and 10, 4 for a square, 3 for a triangle, 0 when undefined.
  int getPointCount() const;
  // Draws at a world position; nothing without a window. Stores the named
  // colour's channels in r, g, b.
  void draw(Vector world_position);

  std::string toString() const;

  // Type, size, colour, opacity: 13 bytes. A custom colour's r, g, b don't
  // travel. The result of checkStream.
  int serialize(std::stringstream* p_ss) const;
  int deserialize(std::stringstream* p_ss);

 private:
  Color m_color = WHITE;
  unsigned char m_r = 0;
  unsigned char m_g = 0;
  unsigned char m_b = 0;
  ShapeType m_type = SHAPE_CIRCLE;
  float m_size = 0.0f;
  unsigned char m_opacity = 255;
};

}  // namespace ot
