#pragma once

#include <map>
#include <string>

#include "engine/core/ObjectList.h"
#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/world/Grid.h"

namespace ot {

class Object;

// The world's index of objects: the same pointers kept in lists that each
// answer one per-frame question (active, solid, visible by altitude, inactive,
// by type), plus the grid for collisions. Owns no object. Object setters call
// the update operations before they store the new value, so the object still
// reports its old state here. Many failures are silent once the game is over.
class SceneGraph {
 public:
  SceneGraph() = default;
  ~SceneGraph();
  SceneGraph(const SceneGraph&) = delete;
  SceneGraph& operator=(const SceneGraph&) = delete;

  // Empties the type map and builds a new, empty grid for the present boundary.
  int startUp();
  // Empties the type map and frees the grid; the other lists stay.
  void shutDown();

  int insertObject(Object* p_o);
  int removeObject(Object* p_o);

  ObjectList activeObjects() const { return m_objects; }
  ObjectList inactiveObjects() const { return m_inactive_objects; }
  ObjectList solidObjects() const { return m_solid_objects; }
  // The visible objects at one altitude; empty, with a warning, outside 0 to 4.
  ObjectList visibleObjects(int altitude) const;
  // The active objects of a type. An unknown type leaves an empty entry behind.
  ObjectList objectsOfType(const std::string& type) const;
  ObjectList getCollisions(Object* p_o, Vector where) const;
  Grid* getGrid() { return &m_grid; }

  int updateActive(Object* p_o, bool active);
  int updateAltitude(Object* p_o, int new_altitude);
  int updatePosition(Object* p_o, Vector where);
  int updateSolidness(Object* p_o, Solidness new_solidness);
  int updateType(Object* p_o, const std::string& new_type);
  int updateVisible(Object* p_o, bool visible);

 private:
  ObjectList m_objects;                                  // every active object
  ObjectList m_solid_objects;                            // active HARD and SOFT objects
  ObjectList m_visible_objects[MAX_ALTITUDE + 1];        // active, visible, by altitude
  ObjectList m_inactive_objects;                         // every inactive object
  mutable std::map<std::string, ObjectList> m_type_map;  // active objects by type
  Grid m_grid;
};

}  // namespace ot
