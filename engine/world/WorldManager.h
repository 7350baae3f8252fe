#pragma once

#include <string>

#include "engine/core/Box.h"
#include "engine/core/Manager.h"
#include "engine/core/ObjectList.h"
#include "engine/core/Vector.h"
#include "engine/world/Circle.h"
#include "engine/world/Line.h"
#include "engine/world/SceneGraph.h"

namespace ot {

class Object;

// The owner of every Object. Each frame it moves everything (with collisions),
// deletes what was marked, and draws by altitude what the view shows. It holds
// the world's boundary and the view, the part of the world the window shows,
// which may follow one object. Queries return copies, so a caller may change
// the world while it walks the result.
class WorldManager : public Manager {
 public:
  static WorldManager& getInstance();

  // Accepts any label but the input, step, out and collision ones.
  bool isValid(const std::string& event_type) const override;
  int startUp() override;
  // Deletes every object.
  void shutDown() override;

  // -1 before startUp.
  int insertObject(Object* p_o);
  int removeObject(Object* p_o);

  // The active objects, followed by the inactive ones when asked.
  ObjectList getAllObjects(bool inactive = false) const;
  // Null when no object has the id.
  Object* objectWithId(int id) const;
  // Objects overlapping a one-cell box centred on where.
  ObjectList objectsAtPosition(Vector where) const;
  ObjectList objectsInBox(Box box) const;
  ObjectList objectsInCircle(Circle circle) const;
  ObjectList objectsOnLine(Line line) const;
  ObjectList objectsOfType(const std::string& type) const;
  ObjectList getCollisions(Object* p_o, Vector where) const;

  // Deletes at the end of this frame's update; marking twice deletes once.
  int markForDelete(Object* p_o);
  int markForDelete(const ObjectList& list);

  // Moves every moving object, walks paths, applies acceleration, then deletes.
  void update();
  // Draws the visible objects in the view, altitude 0 first.
  void draw();

  // Moves with collisions; 0 when the object moved, -1 when it stayed.
  int moveObject(Object* p_o, Vector where);

  void setBoundary(Box boundary);
  Box getBoundary() const { return m_boundary; }
  void setView(Box view) { m_view = view; }
  Box getView() const { return m_view; }
  // Centres the view on where, kept inside the boundary.
  void setViewPosition(Vector where);
  // Null stops following; -1 for an object not in the world.
  int setViewFollowing(Object* p_o);
  Object* getViewFollowing() const { return m_p_view_following; }
  // Per axis, the share (0 to 1) of the view in which the followed object
  // moves without moving the view.
  void setViewSlack(Vector slack);
  Vector getViewSlack() const { return m_view_slack; }

  SceneGraph& getSceneGraph() { return m_scene_graph; }

 private:
  WorldManager();

  // The active objects whose box in the world passes the test.
  template <typename Touches>
  ObjectList activeObjectsWhere(Touches touches) const;

  SceneGraph m_scene_graph;
  ObjectList m_deletions;                // deleted at the end of this update
  Object* m_p_view_following = nullptr;  // compared only, never dereferenced in moves
  Box m_boundary;
  Box m_view;
  Vector m_view_slack;
};

}  // namespace ot
