#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/core/Box.h"
#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/paths/Path.h"
#include "engine/presentation/Animation.h"
#include "engine/presentation/Shape.h"

namespace ot {

class Event;
class PathFind;

// The base of everything in the game world. An object puts itself into the
// WorldManager in its constructor and is owned by the world from then on: make
// it with new, end it with WorldManager::markForDelete. Setters tell the scene
// graph before they store, and mark their attribute in the modified mask that
// serialization reads.
//
//   class Hero : public ot::Object {
//     Hero() { setType("Hero"); setSprite("hero"); registerInterest(ot::STEP_EVENT); }
//     int eventHandler(const ot::Event* p_e) override;
//   };
class Object {
 public:
  // Bits of the modified mask, one per attribute.
  static constexpr unsigned int ID = 0x1;
  static constexpr unsigned int ACTIVE = 0x2;
  static constexpr unsigned int VISIBLE = 0x4;
  static constexpr unsigned int EVENTS = 0x8;
  static constexpr unsigned int BOX = 0x10;
  static constexpr unsigned int POSITION = 0x20;
  static constexpr unsigned int TYPE = 0x40;
  static constexpr unsigned int ANIMATION = 0x80;
  static constexpr unsigned int ALTITUDE = 0x100;
  static constexpr unsigned int SOLIDNESS = 0x200;
  static constexpr unsigned int NO_SOFT = 0x400;
  static constexpr unsigned int SPEED = 0x800;
  static constexpr unsigned int DIRECTION = 0x1000;
  static constexpr unsigned int ACCELERATION = 0x2000;
  static constexpr unsigned int SHAPE = 0x4000;
  static constexpr unsigned int PATH = 0x8000;
  static constexpr unsigned int FOLLOW_PATH = 0x10000;
  static constexpr unsigned int AVOID_COLLISIONS = 0x20000;
  static constexpr unsigned int ALL_OBJECT_ATTRIBUTES = 0x3ffff;

  Object();
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  // Unregisters every interest, drops a running path find, leaves the world.
  virtual ~Object();
  virtual void setType(const std::string& type);
  // Places the object with no collision test; WorldManager::moveObject is the
  // way to move with one. 0.
  virtual int setPosition(Vector position);
  // Handles "ot-path"; 0 for anything else. Returns non-zero when handled.
  virtual int eventHandler(const Event* p_e);
  // -1 for a value that isn't HARD, SOFT or SPECTRAL.
  virtual int setSolidness(Solidness solidness);
  virtual void setAvoidCollisions(bool avoid = true);
  // -1 outside 0 to MAX_ALTITUDE.
  virtual int setAltitude(int altitude);
  // Stores the vector as given: callers wanting a unit vector pass one.
  virtual void setDirection(Vector direction);
  // Speed becomes the magnitude and direction the unit vector.
  virtual void setVelocity(Vector velocity);
  virtual void setAcceleration(Vector acceleration);
  virtual bool isVisible() const;
  virtual int setActive(bool active = true);
  // Re-enters the scene graph, since the grid cells depend on the box.
  virtual void setBox(Box box);
  // Takes the sprite of that label from the ResourceManager; -1 if there is none.
  virtual int setSprite(const std::string& sprite_label);
  virtual void setAnimation(Animation animation, bool set_box = true);
  // Draws the animation, then the shape if it has one; the animation's result.
  virtual int draw();
  // Writes the attributes that changed since the last write (attr 0), or
  // exactly those in attr, and counts them as sent; the result of checkStream.
  virtual int serialize(std::stringstream* p_ss, unsigned int attr = 0);
  // Applies what serialize wrote through the setters and clears the modified
  // mask; *p_a receives the mask read, for a subclass to go on with.
  virtual int deserialize(std::stringstream* p_ss, unsigned int* p_a = nullptr);
  virtual void setModified(unsigned int modified) { m_modified = modified; }
  virtual unsigned int getModified() const { return m_modified; }
  virtual void setShape(Shape shape);
  virtual void setFollowPath(bool follow_path = true);

  int getId() const { return m_id; }
  void setId(int id);
  std::string getType() const { return m_type; }
  bool isActive() const { return m_is_active; }
  int setVisible(bool visible = true);
  Box getBox() const { return m_box; }
  Vector getPosition() const { return m_position; }
  Vector getDirection() const { return m_direction; }
  float getSpeed() const { return m_speed; }
  void setSpeed(float speed);
  // The direction scaled by the speed.
  Vector getVelocity() const;
  Vector getAcceleration() const { return m_acceleration; }
  // Where the velocity takes the object in one step.
  Vector predictPosition() const;
  int getAltitude() const { return m_altitude; }
  Solidness getSolidness() const { return m_solidness; }
  // True for HARD and SOFT.
  bool isSolid() const;
  Animation getAnimation() const { return m_animation; }
  bool getNoSoft() const { return m_no_soft; }
  void setNoSoft(bool no_soft = true);
  int getEventCount() const { return static_cast<int>(m_event_name.size()); }
  Shape getShape() const { return m_shape; }
  Path getPath() const { return m_path; }
  void setPath(Path path);
  PathFind* getPathFind() const { return m_p_path_find.get(); }
  bool getFollowPath() const { return m_follow_path; }
  bool getAvoidCollisions() const { return m_avoid_collisions; }

  // -1 when the object has 100 interests or the manager refuses the label.
  int registerInterest(const std::string& event_type);
  // -1 when the object has no such interest or the manager can't remove it.
  int unregisterInterest(const std::string& event_type);

  // Starts a path search to a position, replacing any running one.
  void pathTo(Vector target);
  // Starts a path search to another object; null does nothing.
  void pathTo(Object* p_target);
  // Adds the acceleration to the velocity; called once per step by the world.
  void applyAcceleration();
  // Walks the path; called once per step by the world, after the move.
  void followPath();

  // Whether any of these bits is set.
  bool isModified(unsigned int attributes) const { return (m_modified & attributes) != 0; }
  bool isModified() const { return m_modified != 0; }

  bool operator==(const Object& other) const;
  std::string toString() const;

 protected:
  // Hands back the id the constructor just took, so that bursts of short-lived
  // objects (particles take id 0) don't use ids up.
  static void giveBackId();
  // Whether serialize writes an attribute: with attr 0 when *p_modified holds
  // its bit, else when attr does. A bit written counts as sent and leaves
  // *p_modified.
  static bool takeForWriting(unsigned int bit, unsigned int attr, unsigned int* p_modified);

 private:
  // Unregisters every interest, the last first.
  void unregisterAll();
  // Removes and deletes a running search.
  void dropPathFind();
  // Turns the object toward the path's current point.
  void aimAtPath();

  int m_id;
  std::string m_type = "(Undefined)";
  bool m_is_active = true;
  bool m_is_visible = true;
  Box m_box = Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f);  // relative to the position
  Vector m_position = Vector(1, 1);                     // world cells, the centre
  Vector m_direction;
  float m_speed = 0.0f;  // cells per step
  Vector m_acceleration;
  int m_altitude = 2;
  Solidness m_solidness = HARD;
  Animation m_animation;
  bool m_no_soft = false;  // when true, may not move onto a SOFT object
  // Only what was registered, at most MAX_OBJ_EVENTS: a world holds many
  // objects and most register for one or two events.
  std::vector<std::string> m_event_name;
  unsigned int m_modified = ALL_OBJECT_ATTRIBUTES;
  Shape m_shape;
  std::unique_ptr<PathFind> m_p_path_find;  // registered with the PathManager while it runs
  Path m_path;
  bool m_follow_path = false;
  bool m_avoid_collisions = false;  // a HARD mover slides past HARD obstacles
};

}  // namespace ot
