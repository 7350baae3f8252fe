#include "engine/effects/Particle.h"

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/LogManager.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/Shape.h"
#include "engine/world/WorldManager.h"

namespace ot {

Particle::Particle(float size, int age, unsigned char opacity, unsigned char r, unsigned char g,
                   unsigned char b) {
  setUp(size, age, opacity, r, g, b);
}

Particle::Particle(float size, int age, unsigned char opacity, Color color) {
  // colorToRGB leaves CUSTOM's channels alone, so they start defined.
  unsigned char r = 0;
  unsigned char g = 0;
  unsigned char b = 0;
  colorToRGB(color, r, g, b);
  setUp(size, age, opacity, r, g, b);
}

void Particle::setUp(float size, int age, unsigned char opacity, unsigned char r, unsigned char g,
                     unsigned char b) {
  setSolidness(SPECTRAL);
  setType("Particle");
  setAltitude(4);
  m_age = age;

  setId(0);
  giveBackId();

  // Only the copy in the object counts; the shared one saves building a Shape
  // for each of the hundreds a burst makes.
  static Shape s_shape;
  s_shape.setColor(r, g, b);
  s_shape.setType(SHAPE_CIRCLE);
  s_shape.setSize(size);
  s_shape.setOpacity(opacity);
  setShape(s_shape);

  registerInterest(STEP_EVENT);
}

void Particle::setColor(unsigned char r, unsigned char g, unsigned char b) {
  Shape shape = getShape();
  shape.setColor(r, g, b);
  setShape(shape);
}

void Particle::setColor(Color color) {
  Shape shape = getShape();
  unsigned char r = shape.getR();
  unsigned char g = shape.getG();
  unsigned char b = shape.getB();
  colorToRGB(color, r, g, b);
  shape.setColor(r, g, b);
  setShape(shape);
}

int Particle::eventHandler(const Event* p_e) {
  if (p_e->getType() == STEP_EVENT) {
    m_age--;
    if (m_age < 1) WorldManager::getInstance().markForDelete(this);
    return 1;
  }
  if (p_e->getType() == OUT_EVENT) {
    WorldManager::getInstance().markForDelete(this);
    return 1;
  }
  return 0;
}

int Particle::serialize(std::stringstream* p_ss, unsigned int attr) {
  LogManager::getInstance().writeLog(
      LOG_INFO, "Particle::serialize(): Warning!  Particles attributes are not serialized.");
  return Object::serialize(p_ss, attr);
}

int Particle::deserialize(std::stringstream* p_ss, unsigned int* p_a) {
  LogManager::getInstance().writeLog(LOG_INFO,
                                     "Particle::deserialize(): Warning!  Cannot deserialize particles.");
  return Object::deserialize(p_ss, p_a);
}

}  // namespace ot
