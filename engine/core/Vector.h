#pragma once

#include <sstream>
#include <string>

namespace ot {

// A 2-D value in character cells: a position, a direction or a per-step
// velocity. Copied by value everywhere; comparisons are exact.
class Vector {
 public:
  Vector() = default;
  Vector(float x, float y);

  float getX() const { return m_x; }
  float getY() const { return m_y; }
  void setX(float x) { m_x = x; }
  void setY(float y) { m_y = y; }
  void setXY(float x, float y);

  float getMagnitude() const;
  // Makes the vector one long; the zero vector stays zero.
  void normalize();
  void scale(float s);

  Vector operator+(const Vector& other) const;
  Vector operator-(const Vector& other) const;
  Vector& operator+=(const Vector& other);
  bool operator==(const Vector& other) const;
  bool operator!=(const Vector& other) const;
  // True when both components are exactly zero.
  bool operator!() const;

  // x then y, 8 bytes; the result of checkStream.
  int serialize(std::stringstream* p_ss) const;
  int deserialize(std::stringstream* p_ss);

  // "(x,y)" with no blank.
  std::string toString() const;

 private:
  float m_x = 0.0f;
  float m_y = 0.0f;
};

}  // namespace ot
