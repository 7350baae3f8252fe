#pragma once

#include <string>

#include "engine/core/Box.h"
#include "engine/core/Vector.h"
#include "engine/world/Circle.h"
#include "engine/world/Line.h"

// What overlapping, lying inside and being near mean for the engine. All
// arithmetic is 32-bit float, and edges count as inside: boxes that touch
// collide. No state, no allocation: these stand on the collision hot path.

namespace ot {

class Object;

// value >= min and max >= value; a NaN gives false.
bool valueInRange(float value, float min, float max);
float distance(Vector a, Vector b);
// The object's box with its corner moved by where (or by its position).
Box getWorldBox(const Object* p_o, Vector where);
Box getWorldBox(const Object* p_o);
bool boxContainsPosition(Box b, Vector p);
// a holds both b's corner and b's far corner.
bool boxContainsBox(Box a, Box b);
bool boxIntersectsBox(Box a, Box b);
// Parallel segments never cross, even when they lie on one another.
bool lineIntersectsLine(Line a, Line b);
// l crosses a side, or lies wholly inside.
bool lineIntersectsBox(Line l, Box b);
// True only when the circle holds one of the box's corners.
bool circleIntersectsBox(Circle c, Box b);
// From which side p_o ran into p_other, as a unit step per axis; (0,0) when
// no side is found.
Vector getNormal(Object* p_o, Object* p_other);
// Between the view's coordinates and the world's.
Vector viewToWorld(Vector view_pos);
Vector worldToView(Vector world_pos);
// Degrees, 0 pointing up, 90 to the right.
float vectorToAngle(Vector v);
// Always 32 characters, highest bit first.
std::string toBinaryString(unsigned int value);

}  // namespace ot
