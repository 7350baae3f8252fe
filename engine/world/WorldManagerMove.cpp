// WorldManager::moveObject: the one way to move an object with regard for the
// world. Kept apart from the bookkeeping in WorldManager.cpp.

#include <cmath>

#include "engine/core/EventCollision.h"
#include "engine/core/EventOut.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/world/Geometry.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace ot {

namespace {

ObjectListIterator firstHard(ObjectListIterator it) {
  while (!it.isDone() && it.currentObject()->getSolidness() != HARD) it.next();
  return it;
}

}  // namespace

int WorldManager::moveObject(Object* p_o, Vector where) {
  bool do_move = true;

  // Spectral movers get no collision of any kind.
  if (p_o->isSolid()) {
    ObjectList collision_list = getCollisions(p_o, where);

    // Sliding: a HARD mover that avoids collisions moves along the first HARD obstacle.
    if (!collision_list.isEmpty() && p_o->getSolidness() == HARD && p_o->getAvoidCollisions()) {
      ObjectListIterator hard = firstHard(ObjectListIterator(&collision_list));
      if (!hard.isDone()) {
        Vector normal = getNormal(p_o, hard.currentObject());
        Vector perp(normal.getY(), normal.getX());
        Vector direction = p_o->getDirection();
        Vector direction2(direction.getX() * std::fabs(perp.getX()),
                          direction.getY() * std::fabs(perp.getY()));
        if (std::fabs(static_cast<double>(normal.getX())) == 1.0 &&
            std::fabs(static_cast<double>(normal.getY())) == 1.0)
          direction2.setX(-direction2.getX());  // a corner was hit
        Vector velocity = direction2;
        velocity.normalize();
        velocity.scale(p_o->getSpeed());
        // Kept quirk: from the present position; the caller's where no longer
        // counts, and sliders move as games have seen them move.
        Vector where2 = p_o->getPosition() + velocity;
        ObjectList collision_list2 = getCollisions(p_o, where2);
        if (!firstHard(ObjectListIterator(&collision_list2)).isDone()) {
          LogManager::getInstance().writeLog(
              LOG_DETAIL,
              "WorldManager::moveObject(): Double collision. Object (avoid obstacles) cannot move.");
          return -1;
        }
        collision_list = collision_list2;
        where = where2;
      }
    }

    if (!collision_list.isEmpty()) {
      Vector pos_before = p_o->getPosition();
      for (ObjectListIterator it(&collision_list); !it.isDone(); it.next()) {
        Object* p_other = it.currentObject();
        EventCollision c(p_o, p_other, where);
        // The mover always hears first; every collider hears, blocking or not.
        p_o->eventHandler(&c);
        p_other->eventHandler(&c);
        if (p_o->getSolidness() == HARD && p_other->getSolidness() == HARD) do_move = false;
        if (p_o->getNoSoft() && p_other->getSolidness() == SOFT) do_move = false;
      }
      // A handler that moved the object wins over this move.
      if (p_o->getPosition() != pos_before) do_move = false;
      if (!do_move) return -1;
    }
  }

  Box orig_box = getWorldBox(p_o);
  p_o->setPosition(where);
  Box new_box = getWorldBox(p_o);

  // Told once, on the step that leaves the world; the move stands regardless.
  if (boxIntersectsBox(orig_box, m_boundary) && !boxIntersectsBox(new_box, m_boundary)) {
    EventOut ov;
    p_o->eventHandler(&ov);
  }

  if (m_p_view_following != p_o) return 0;
  float view_center_x = m_view.getCorner().getX() + m_view.getHorizontal() / 2;
  float view_center_y = m_view.getCorner().getY() + m_view.getVertical() / 2;
  float view_edge_left = view_center_x - m_view.getHorizontal() * m_view_slack.getX() / 2;
  float view_edge_right = view_center_x + m_view.getHorizontal() * m_view_slack.getX() / 2;
  float view_edge_top = view_center_y - m_view.getVertical() * m_view_slack.getY() / 2;
  float view_edge_bottom = view_center_y + m_view.getVertical() * m_view_slack.getY() / 2;
  Vector new_pos = p_o->getPosition();
  if (view_edge_left > new_pos.getX())
    view_center_x -= view_edge_left - new_pos.getX();
  else if (new_pos.getX() > view_edge_right)
    view_center_x += new_pos.getX() - view_edge_right;
  if (view_edge_top > new_pos.getY())
    view_center_y -= view_edge_top - new_pos.getY();
  else if (new_pos.getY() > view_edge_bottom)
    view_center_y += new_pos.getY() - view_edge_bottom;
  setViewPosition(Vector(view_center_x, view_center_y));
  return 0;
}

}  // namespace ot
