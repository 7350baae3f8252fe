#pragma once

#include <string>

#include "engine/world/Object.h"

class Hero;

// Turns the hero's gold into upgrades and the door key. One for the run, made
// by the Hero, which marks it for deletion when it goes; the shop tiles of
// both floors open the same one, so prices and key carry over. While open it
// draws a panel over the view and takes the number keys.
class Shop : public ot::Object {
 public:
  explicit Shop(Hero* p_hero);
  ~Shop() override = default;

  // Steps fade the message; number keys buy while open.
  int eventHandler(const ot::Event* p_e) override;
  // The panel, while open; always 0.
  int draw() override;

  bool isOpen() const { return m_open; }
  void open();
  void close();
  // One purchase attempt of item 1 to 5; the outcome goes into the message.
  void buy(int item);
  // Shown for 60 steps.
  void setMessage(std::string message);

  bool hasKey() const { return m_has_key; }
  int getPriceHp() const { return m_price_hp; }
  int getPriceMelee() const { return m_price_melee; }
  int getPriceRanged() const { return m_price_ranged; }
  std::string getMessage() const { return m_message; }
  int getMessageTimer() const { return m_message_timer; }

 private:
  // Buys a priced upgrade and raises its price by half; false when the gold falls short.
  bool buyUpgrade(int& price);
  void drawLine(int row, const std::string& text, ot::Color color) const;

  Hero* m_hero;  // the customer; not owned
  bool m_open = false;
  bool m_has_key = false;
  int m_price_hp = 40;
  int m_price_melee = 50;
  int m_price_ranged = 50;
  std::string m_message;
  int m_message_timer = 0;  // steps
};
