#include "game/GameOver.h"

#include "engine/core/Event.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "game/Level.h"
#include "game/ViewText.h"

GameOver::GameOver(int score, int kills) : m_score(score), m_kills(kills) {
  setType("GameOver");
  setSolidness(ot::SPECTRAL);
  setAltitude(4);
  setPosition(ot::Vector(0, 0));
  setBox(mapBox());
  registerInterest(ot::STEP_EVENT);
}

int GameOver::eventHandler(const ot::Event* p_e) {
  if (p_e->getType() != ot::STEP_EVENT) return 0;
  if (--m_countdown <= 0) ot::GameManager::getInstance().setGameOver(true);
  return 1;
}

void GameOver::drawLine(ot::Vector origin, int row, const std::string& text, ot::Color color) const {
  drawViewString(origin + ot::Vector(0, static_cast<float>(row)), text, ot::CENTER_JUSTIFIED, color);
}

int GameOver::draw() {
  ot::Box view = ot::WorldManager::getInstance().getView();
  ot::Vector center(view.getHorizontal() / 2.0f, view.getVertical() / 2.0f);
  const std::string rule = "##########################";
  drawLine(center, -3, rule, ot::RED);
  drawLine(center, -2, "G A M E   O V E R", ot::RED);
  drawLine(center, 0, "Final Score: " + std::to_string(m_score), ot::WHITE);
  drawLine(center, 1, "Enemies Slain: " + std::to_string(m_kills), ot::WHITE);
  drawLine(center, 3, rule, ot::RED);
  return 0;
}
