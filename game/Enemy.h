#pragma once

#include "game/GridEntity.h"

// Every monster: slime (type 0), bat (1) or brute (2), differing only in
// numbers and sprite. It acts at its own slow beat: strikes the hero when
// next to it, hunts it when near, wanders when not. Its level only rises,
// adding half its base hit points per level and one damage. Owned by the world.
class Enemy : public GridEntity {
 public:
  // Any type but 1 and 2 is a slime.
  Enemy(int type, int x, int y);
  ~Enemy() override = default;

  // Acts on step events (1); 0 for anything else.
  int eventHandler(const ot::Event* p_e) override;
  // The sprite, and swinging stars while stunned.
  int draw() override;
  // A burst, the reward to the hero, and deletion.
  void onDeath() override;

  // Raises the enemy to a level above its own; damage taken stays taken.
  void setLevel(int level);
  // Leaves the world with no reward and no effect, as when a floor is stashed.
  void removeSilently();
  // Stunned for this many steps; its countdown stands still meanwhile.
  void stun(int steps);
  // The kind, 0 to 2. It hides Object::getType, the type name "Enemy".
  int getType() const { return m_type; }
  int getReward() const { return m_reward; }
  int getDamage() const { return m_damage; }
  int getLevel() const { return m_level; }
  int getMovePeriod() const { return m_move_period; }
  int getSight() const { return m_sight; }
  bool isStunned() const { return m_stun_timer > 0; }

 private:
  void act();
  // Steps toward the tile, the longer axis first; false when neither step works.
  bool chase(int x, int y);
  void wander();

  int m_type;
  int m_damage = 1;
  int m_reward = 0;  // gold and score; doesn't grow with the level
  int m_move_period = 1;
  int m_move_countdown = 1;
  int m_sight = 0;  // tiles
  int m_stun_timer = 0;
  int m_base_max_hp = 1;
  int m_base_damage = 1;
  int m_level = 0;
};
