#include "engine/core/Vector.h"

#include <cmath>

#include "engine/core/Utility.h"

namespace ot {

Vector::Vector(float x, float y) : m_x(x), m_y(y) {}

void Vector::setXY(float x, float y) {
  m_x = x;
  m_y = y;
}

float Vector::getMagnitude() const { return sqrtf(m_x * m_x + m_y * m_y); }

void Vector::normalize() {
  float length = getMagnitude();
  if (length > 0) {
    m_x /= length;
    m_y /= length;
  }
}

void Vector::scale(float s) {
  m_x *= s;
  m_y *= s;
}

Vector Vector::operator+(const Vector& other) const { return Vector(m_x + other.m_x, m_y + other.m_y); }

Vector Vector::operator-(const Vector& other) const { return Vector(m_x - other.m_x, m_y - other.m_y); }

Vector& Vector::operator+=(const Vector& other) {
  m_x += other.m_x;
  m_y += other.m_y;
  return *this;
}

bool Vector::operator==(const Vector& other) const { return m_x == other.m_x && m_y == other.m_y; }

bool Vector::operator!=(const Vector& other) const { return !(*this == other); }

bool Vector::operator!() const { return static_cast<double>(m_x) == 0.0 && static_cast<double>(m_y) == 0.0; }

int Vector::serialize(std::stringstream* p_ss) const {
  writeRaw(p_ss, m_x);
  writeRaw(p_ss, m_y);
  return checkStream("Vector::serialize()", p_ss);
}

int Vector::deserialize(std::stringstream* p_ss) {
  readRaw(p_ss, &m_x);
  readRaw(p_ss, &m_y);
  return checkStream("Vector::deserialize()", p_ss);
}

std::string Vector::toString() const { return "(" + ot::toString(m_x) + "," + ot::toString(m_y) + ")"; }

}  // namespace ot
