#pragma once

#include "engine/core/Vector.h"
#include "game/GridEntity.h"

namespace ot {
class EventKeyboard;
class EventMouse;
}  // namespace ot

class Shop;

// The player's creature: turns keys and clicks into tile steps, sword blows,
// arrows and a short block, keeps the run's score, gold and kills, and feeds
// the HUD through view events. All timing counts game steps. It makes the
// run's Shop and marks it for deletion when it goes; the world owns both.
class Hero : public GridEntity {
 public:
  Hero();
  ~Hero() override;

  // 1 for keyboard, mouse and step events, else 0.
  int eventHandler(const ot::Event* p_e) override;
  // Blinks while invulnerable; draws the block marks and the aim mark.
  int draw() override;
  // No harm in the shop or while invulnerable; true when the blow killed.
  bool takeDamage(int damage) override;
  // Ends the run: the end screen and a burst.
  void onDeath() override;

  bool isBlocking() const { return m_block_timer > 0; }
  // Called by an attacker: while blocking, shows the parry and answers true.
  bool absorbBlow();
  // The same amount into score and gold, and one kill more.
  void addKillReward(int amount);
  // False, with nothing spent, when the gold doesn't reach the price.
  bool spendGold(int price);
  void addMaxHp(int amount);
  void healFull();
  void addMeleeDamage(int amount) { m_melee_damage += amount; }
  void addRangedDamage(int amount) { m_ranged_damage += amount; }
  int getGold() const { return m_gold; }
  int getScore() const { return m_score; }
  int getKills() const { return m_kills; }
  int getMeleeDamage() const { return m_melee_damage; }
  int getRangedDamage() const { return m_ranged_damage; }
  Shop* getShop() const { return m_shop; }
  // Sends HP, gold and score to the HUD.
  void updateHud();
  // The direction, one of four, from the hero toward the mouse as the eye sees it.
  void computeAim(int& dx, int& dy) const;

 private:
  void handleKeyboard(const ot::EventKeyboard* p_e);
  void handleMouse(const ot::EventMouse* p_e);
  void handleStep();
  void tryStep(int dx, int dy);
  void startBlock();
  void meleeAttack();
  void rangedAttack();
  bool shopOpen() const;

  int m_move_cooldown = 0;  // all in steps
  int m_melee_cooldown = 0;
  int m_ranged_cooldown = 0;
  int m_invuln_timer = 0;
  int m_block_timer = 0;
  int m_block_cooldown = 0;
  int m_melee_damage = 2;
  int m_ranged_damage = 1;
  int m_score = 0;
  int m_gold = 0;
  int m_kills = 0;
  ot::Vector m_mouse;      // view spaces
  Shop* m_shop = nullptr;  // made here, deleted by the world
};

// The world's hero, or null once it is gone.
Hero* findHero();
