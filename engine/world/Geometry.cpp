#include "engine/world/Geometry.h"

#include <cmath>

#include "engine/core/LogManager.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

// Whether the closed spans [a, a + a_size] and [b, b + b_size] overlap, by
// either start lying in the other span.
bool spansOverlap(float a, float a_size, float b, float b_size) {
  return valueInRange(a, b, b + b_size) || valueInRange(b, a, a + a_size);
}

Box shifted(Box box, float dx, float dy) {
  Vector corner = box.getCorner();
  box.setCorner(Vector(corner.getX() + dx, corner.getY() + dy));
  return box;
}

}  // namespace

bool valueInRange(float value, float min, float max) { return value >= min && max >= value; }

float distance(Vector a, Vector b) {
  float dx = std::fabs(a.getX() - b.getX());
  float dy = std::fabs(a.getY() - b.getY());
  return sqrtf(dx * dx + dy * dy);
}

Box getWorldBox(const Object* p_o, Vector where) {
  Box box = p_o->getBox();
  return shifted(box, where.getX(), where.getY());
}

Box getWorldBox(const Object* p_o) { return getWorldBox(p_o, p_o->getPosition()); }

bool boxContainsPosition(Box b, Vector p) {
  Vector c = b.getCorner();
  return valueInRange(p.getX(), c.getX(), c.getX() + b.getHorizontal()) &&
         valueInRange(p.getY(), c.getY(), c.getY() + b.getVertical());
}

bool boxContainsBox(Box a, Box b) {
  Vector far(b.getCorner().getX() + b.getHorizontal(), b.getCorner().getY() + b.getVertical());
  return boxContainsPosition(a, b.getCorner()) && boxContainsPosition(a, far);
}

bool boxIntersectsBox(Box a, Box b) {
  bool x_overlap =
      spansOverlap(a.getCorner().getX(), a.getHorizontal(), b.getCorner().getX(), b.getHorizontal());
  bool y_overlap = spansOverlap(a.getCorner().getY(), a.getVertical(), b.getCorner().getY(), b.getVertical());
  return x_overlap && y_overlap;
}

bool lineIntersectsLine(Line a, Line b) {
  float ax1 = a.getP1().getX(), ay1 = a.getP1().getY(), ax2 = a.getP2().getX(), ay2 = a.getP2().getY();
  float bx1 = b.getP1().getX(), by1 = b.getP1().getY(), bx2 = b.getP2().getX(), by2 = b.getP2().getY();
  float d = (ax2 - ax1) * (by2 - by1) - (bx2 - bx1) * (ay2 - ay1);
  if (d == 0) return false;  // parallel, even when lying on one another
  float ua = ((ay1 - by1) * (bx2 - bx1) - (ax1 - bx1) * (by2 - by1)) / d;
  float ub = ((ay1 - by1) * (ax2 - ax1) - (ax1 - bx1) * (ay2 - ay1)) / d;
  return valueInRange(ua, 0, 1) && valueInRange(ub, 0, 1);
}

bool lineIntersectsBox(Line l, Box b) {
  Vector ul = b.getCorner();
  Vector ur(ul.getX() + b.getHorizontal(), ul.getY());
  Vector ll(ul.getX(), ul.getY() + b.getVertical());
  Vector lr(ur.getX(), ll.getY());
  if (lineIntersectsLine(l, Line(ul, ur)) || lineIntersectsLine(l, Line(ur, lr)) ||
      lineIntersectsLine(l, Line(ll, lr)) || lineIntersectsLine(l, Line(ul, ll)))
    return true;
  return boxContainsPosition(b, l.getP1()) && boxContainsPosition(b, l.getP2());
}

bool circleIntersectsBox(Circle c, Box b) {
  Vector ul = b.getCorner();
  Vector corners[4] = {ul, Vector(ul.getX() + b.getHorizontal(), ul.getY()),
                       Vector(ul.getX(), ul.getY() + b.getVertical()),
                       Vector(ul.getX() + b.getHorizontal(), ul.getY() + b.getVertical())};
  for (const Vector& corner : corners) {
    if (c.getRadius() > distance(c.getCenter(), corner)) return true;
  }
  return false;
}

Vector getNormal(Object* p_o, Object* p_other) {
  Vector velocity = p_o->getVelocity();
  Vector good = p_o->getPosition();
  Box other = getWorldBox(p_other);
  float fraction = 0.5f;
  for (int i = 1; i <= 7; i++) {
    // Kept quirk: the scalings pile up from pass to pass; that is how the
    // search narrows, and bounces depend on it.
    velocity.scale(fraction);
    Vector candidate = p_o->getPosition() + velocity;
    float step = static_cast<float>(std::pow(0.5, i));
    if (boxIntersectsBox(getWorldBox(p_o, candidate), other)) {
      fraction -= step;
    } else {
      good = candidate;
      fraction += step;
    }
  }
  Box box = getWorldBox(p_o, good);
  float h = other.getHorizontal(), v = other.getVertical();
  struct Side {
    float dx, dy;
    Vector normal;
  };
  const Side sides[8] = {{0, -v, Vector(0, -1)}, {0, v, Vector(0, 1)},     {-h, 0, Vector(-1, 0)},
                         {h, 0, Vector(1, 0)},   {-h, -v, Vector(-1, -1)}, {h, -v, Vector(1, -1)},
                         {-h, v, Vector(-1, 1)}, {h, v, Vector(1, 1)}};
  for (const Side& side : sides) {
    if (boxIntersectsBox(box, shifted(other, side.dx, side.dy))) return side.normal;
  }
  LogManager::getInstance().writeLog(LOG_INFO, "getNormal(): No collision detected. Returning (0,0).");
  return Vector(0, 0);
}

Vector viewToWorld(Vector view_pos) { return view_pos + WorldManager::getInstance().getView().getCorner(); }

Vector worldToView(Vector world_pos) { return world_pos - WorldManager::getInstance().getView().getCorner(); }

float vectorToAngle(Vector v) {
  return static_cast<float>(static_cast<double>(atan2f(v.getY(), v.getX())) * 57.29577951308232 + 90.0);
}

std::string toBinaryString(unsigned int value) {
  std::string bits(32, '0');
  for (int i = 0; i < 32; i++) {
    if (value & (1u << (31 - i))) bits[i] = '1';
  }
  return bits;
}

}  // namespace ot
