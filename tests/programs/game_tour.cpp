// A whole run of the dungeon game on the game library, played by a script
// through the game's own operations: sword blows kill enemies for their
// reward, the shop sells the key by its number key, the hero walks through a
// door by held keys and takes the stairs by E, then dies and the end screen
// ends the game. It checks each stage as it goes and says what failed on
// standard error; the exit status is the number of failed checks. Given a
// folder, it saves a screenshot of each stage there.
//
//   ostrel-game-tour [screenshot-folder]     (from the repository root)

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "engine/core/EventKeyboard.h"
#include "engine/core/EventLabels.h"
#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectListIterator.h"
#include "engine/presentation/DisplayManager.h"
#include "engine/presentation/InputManager.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"

namespace {

int g_failures = 0;
std::string g_shots;

void check(bool ok, const char* what) {
  if (ok) return;
  std::fprintf(stderr, "game tour: %s\n", what);
  g_failures++;
}

void key(int key, int action) {
  ot::EventKeyboard event;
  event.setKey(key);
  event.setKeyboardAction(action);
  ot::InputManager::getInstance().onEvent(&event);
}

// At a step event the back buffer holds the whole previous frame.
void shot(const std::string& name) {
  if (!g_shots.empty()) ot::DisplayManager::getInstance().saveScreenshot(g_shots + "/" + name + ".png");
}

// Kills every enemy on the floor with sword blows, as a hero's blow would.
void slayAll(Hero* p_hero) {
  ot::ObjectList enemies = ot::WorldManager::getInstance().objectsOfType("Enemy");
  for (ot::ObjectListIterator it(&enemies); !it.isDone(); it.next()) {
    auto* p_enemy = dynamic_cast<Enemy*>(it.currentObject());
    while (p_enemy->getHp() > 0)
      new Slash(p_enemy->getGx(), p_enemy->getGy(), p_hero->getMeleeDamage(), p_hero);
  }
}

// Runs one stage a frame, each stage waiting as many frames as it asks first.
class Tour : public ot::Object {
 public:
  struct Stage {
    int wait;
    std::function<void(Hero*)> act;
  };

  explicit Tour(std::vector<Stage> stages) : m_stages(std::move(stages)) {
    setType("Tour");
    setSolidness(ot::SPECTRAL);
    setVisible(false);
    registerInterest(ot::STEP_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    if (p_e->getType() != ot::STEP_EVENT || m_next >= m_stages.size()) return 0;
    if (++m_waited < m_stages[m_next].wait) return 1;
    m_waited = 0;
    m_stages[m_next++].act(findHero());
    return 1;
  }

 private:
  std::vector<Stage> m_stages;
  size_t m_next = 0;
  int m_waited = 0;
};

std::vector<Tour::Stage> stages() {
  namespace K = ot::Keyboard;
  return {
      {10, [](Hero*) { shot("start"); }},
      // Between two brutes of the east rooms, blocking, with a blow and an arrow in the air.
      {1,
       [](Hero* p_hero) {
         p_hero->setGridPos(52, 16);
         key(K::LEFTSHIFT, ot::KEY_PRESSED);
         new Slash(52, 15, 0, p_hero);
         new Projectile(52, 16, -1, 0, 1, p_hero);
       }},
      {4, [](Hero*) { shot("creatures"); }},
      {1,
       [](Hero* p_hero) {
         int gold = p_hero->getGold();
         slayAll(p_hero);
         check(p_hero->getGold() == gold + 12 * 10 + 8 * 15 + 3 * 50, "the kills didn't pay their rewards");
         check(p_hero->getKills() == 23, "not every enemy was killed");
       }},
      {2,
       [](Hero* p_hero) {
         p_hero->setGridPos(33, 6);
         key(K::E, ot::KEY_PRESSED);
         check(p_hero->getShop()->isOpen(), "E on the shop tile didn't open the shop");
         key(K::NUM5, ot::KEY_PRESSED);
         check(getLevel()->doorsOpen(), "the key didn't open the doors");
         key(K::NUM1, ot::KEY_PRESSED);
       }},
      {2, [](Hero*) { shot("shop"); }},
      {1,
       [](Hero* p_hero) {
         key(K::E, ot::KEY_PRESSED);
         check(!p_hero->getShop()->isOpen(), "E didn't close the shop");
         p_hero->setGridPos(34, 15);
       }},
      // Held right: through the door at (35,15), one tile each five steps.
      {1, [](Hero*) { key(K::D, ot::KEY_DOWN); }},
      {5, [](Hero*) { key(K::D, ot::KEY_DOWN); }},
      {5, [](Hero*) { key(K::RIGHTARROW, ot::KEY_DOWN); }},
      {1,
       [](Hero* p_hero) {
         check(p_hero->getGx() == 37 && p_hero->getGy() == 15, "the hero didn't walk through the door");
         p_hero->setGridPos(44, 27);
         key(K::E, ot::KEY_PRESSED);
         check(getLevel()->getFloor() == 1, "E on the stairs didn't change the floor");
       }},
      {5,
       [](Hero* p_hero) {
         check(ot::WorldManager::getInstance().objectsOfType("Enemy").getCount() == 23,
               "the second floor didn't get its 23 enemies");
         check(p_hero->getGx() == 44 && p_hero->getGy() == 27, "the hero isn't on the stairs");
         shot("floor2");
         p_hero->takeDamage(p_hero->getHp());
       }},
      {10, [](Hero*) { shot("gameover"); }},
  };
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) g_shots = argv[1];
  ot::GameManager& game = ot::GameManager::getInstance();
  if (game.startUp() != 0) {
    game.shutDown();
    return 1;
  }
  ot::LogManager::getInstance().setFlush(true);
  loadGameSprites();
  populateWorld();
  new Tour(stages());
  game.run();
  check(game.getStepCount() > 120, "the game ended before the end screen's time");
  check(findHero() == nullptr, "the hero is still alive");
  game.shutDown();
  return g_failures;
}
