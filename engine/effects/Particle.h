#pragma once

#include "engine/core/Types.h"
#include "engine/world/Object.h"

namespace ot {

class Event;

// A short-lived decorative object: a coloured shape that counts its age down
// by one per step and marks itself for deletion when the age runs out or it
// leaves the view. Spectral, at altitude 4, and always id 0: a particle hands
// back the id its construction took, so bursts don't use ids up. Owned by the
// world like any Object.
class Particle : public Object {
 public:
  Particle(float size, int age, unsigned char opacity, unsigned char r, unsigned char g, unsigned char b);
  // r, g, b from colorToRGB; a CUSTOM colour gives black.
  Particle(float size, int age, unsigned char opacity, Color color);

  int getAge() const { return m_age; }
  void setAge(int age) { m_age = age; }
  // Stores the shape's colour through setShape, as a custom colour.
  void setColor(unsigned char r, unsigned char g, unsigned char b);
  void setColor(Color color);

  // Counts a step down (1), ends on leaving the view (1); 0 for anything else.
  int eventHandler(const Event* p_e) override;
  // A particle's own fields never travel: both warn, then do as Object does.
  int serialize(std::stringstream* p_ss, unsigned int attr = 0) override;
  int deserialize(std::stringstream* p_ss, unsigned int* p_a = nullptr) override;

 private:
  // The tail shared by both constructors.
  void setUp(float size, int age, unsigned char opacity, unsigned char r, unsigned char g, unsigned char b);

  int m_age;  // steps left to live
};

}  // namespace ot
