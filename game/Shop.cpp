#include "game/Shop.h"

#include "engine/core/Event.h"
#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/presentation/InputManager.h"
#include "engine/world/WorldManager.h"
#include "game/Hero.h"
#include "game/Level.h"
#include "game/ViewText.h"

namespace {

constexpr int HEAL_PRICE = 20;
constexpr int KEY_PRICE = 100;
constexpr int MESSAGE_STEPS = 60;
const char* const NOT_ENOUGH_GOLD = "Not enough gold.";

}  // namespace

Shop::Shop(Hero* p_hero) : m_hero(p_hero) {
  setType("Shop");
  setSolidness(ot::SPECTRAL);
  setAltitude(4);
  setPosition(ot::Vector(0, 0));
  // Covers the whole world, so the view's culling never drops the panel.
  setBox(mapBox());
  registerInterest(ot::STEP_EVENT);
}

void Shop::open() {
  if (m_open) return;
  m_open = true;
  registerInterest(ot::KEYBOARD_EVENT);
  setMessage("Welcome! Press a number to buy, E to leave.");
}

void Shop::close() {
  if (!m_open) return;
  m_open = false;
  // The message stays and fades by its timer.
  unregisterInterest(ot::KEYBOARD_EVENT);
}

void Shop::setMessage(std::string message) {
  m_message = std::move(message);
  m_message_timer = MESSAGE_STEPS;
}

int Shop::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() == ot::STEP_EVENT) {
    if (m_message_timer > 0 && --m_message_timer == 0) m_message.clear();
    return 1;
  }
  if (p_e->getType() == ot::KEYBOARD_EVENT && m_open) {
    auto* p_key = static_cast<const ot::EventKeyboard*>(p_e);
    int key = p_key->getKey();
    // The main block's digits only; the number pad has no codes of its own.
    if (p_key->getKeyboardAction() == ot::KEY_PRESSED && key >= ot::Keyboard::NUM1 &&
        key <= ot::Keyboard::NUM5)
      buy(key - ot::Keyboard::NUM1 + 1);
    return 1;
  }
  return 0;
}

bool Shop::buyUpgrade(int& price) {
  if (!m_hero->spendGold(price)) {
    setMessage(NOT_ENOUGH_GOLD);
    return false;
  }
  price = price * 3 / 2;
  return true;
}

void Shop::buy(int item) {
  if (!m_hero) return;
  switch (item) {
    case 1:
      if (m_hero->getHp() >= m_hero->getMaxHp()) {
        setMessage("Already at full health.");
      } else if (!m_hero->spendGold(HEAL_PRICE)) {
        setMessage(NOT_ENOUGH_GOLD);
      } else {
        m_hero->healFull();
        setMessage("Healed!");
      }
      break;
    case 2:
      if (buyUpgrade(m_price_hp)) {
        m_hero->addMaxHp(5);
        setMessage("+5 Max HP!");
      }
      break;
    case 3:
      if (buyUpgrade(m_price_melee)) {
        m_hero->addMeleeDamage(1);
        setMessage("Sword sharpened: +1 melee damage!");
      }
      break;
    case 4:
      if (buyUpgrade(m_price_ranged)) {
        m_hero->addRangedDamage(1);
        setMessage("Arrows reinforced: +1 ranged damage!");
      }
      break;
    case 5:
      if (m_has_key) {
        setMessage("You already have the key.");
      } else if (!m_hero->spendGold(KEY_PRICE)) {
        setMessage(NOT_ENOUGH_GOLD);
      } else {
        m_has_key = true;
        if (Level* p_level = getLevel()) p_level->setDoorsOpen(true);
        setMessage("Key acquired! Locked doors (+) are now open.");
      }
      break;
    default: break;
  }
}

void Shop::drawLine(int row, const std::string& text, ot::Color color) const {
  ot::Box view = ot::WorldManager::getInstance().getView();
  ot::Vector at(view.getHorizontal() / 2.0f, view.getVertical() / 2.0f - 7.0f + static_cast<float>(row));
  drawViewString(at, text, ot::CENTER_JUSTIFIED, color);
}

int Shop::draw() {
  if (!m_open) return 0;
  const std::string rule(56, '=');
  const std::string g = "g";
  drawLine(0, rule, ot::YELLOW);
  drawLine(1, "=  S H O P  =", ot::YELLOW);
  drawLine(2, "Gold: " + std::to_string(m_hero ? m_hero->getGold() : 0), ot::WHITE);
  drawLine(4, "[1] Full heal ................ " + std::to_string(HEAL_PRICE) + g, ot::WHITE);
  drawLine(5, "[2] +5 Max HP ................ " + std::to_string(m_price_hp) + g, ot::WHITE);
  drawLine(6, "[3] +1 Melee damage .......... " + std::to_string(m_price_melee) + g, ot::WHITE);
  drawLine(7, "[4] +1 Ranged damage ......... " + std::to_string(m_price_ranged) + g, ot::WHITE);
  drawLine(
      8,
      "[5] Door Key ................. " + (m_has_key ? std::string("OWNED") : std::to_string(KEY_PRICE) + g),
      ot::WHITE);
  drawLine(10, "Press E to leave", ot::CYAN);
  if (!m_message.empty()) drawLine(12, m_message, ot::GREEN);
  drawLine(13, rule, ot::YELLOW);
  return 0;
}
