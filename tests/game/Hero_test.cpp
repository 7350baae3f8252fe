#include "game/Hero.h"

#include <tuple>

#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

namespace K = ot::Keyboard;
using ot::Vector;

class HeroTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    p_hero = makeHero();
  }

  // One frame's step, then a held key, as the game loop orders them.
  void holdFor(int key, int frames) {
    for (int i = 0; i < frames; i++) {
      step();
      GameWorld::key(key, ot::KEY_DOWN);
    }
  }
  void clickAt(int button, Vector offset) { mouse(ot::CLICKED, button, p_hero->getPosition() + offset); }

  Hero* p_hero = nullptr;
};

TEST_F(HeroTest, StartsOnTheStartTile) {
  EXPECT_EQ(std::make_tuple(3, 2, 10, 10, 2, 1, 3),
            std::make_tuple(p_hero->getGx(), p_hero->getGy(), p_hero->getHp(), p_hero->getMaxHp(),
                            p_hero->getMeleeDamage(), p_hero->getRangedDamage(), p_hero->getAltitude()));
  EXPECT_EQ(p_hero, ot::WorldManager::getInstance().getViewFollowing());
  EXPECT_EQ(1, countOf("Shop"));
}

TEST_F(HeroTest, AHeldKeyCrossesOneTileEveryFiveSteps) {
  holdFor(K::D, 11);  // moves in frames 1, 6 and 11
  EXPECT_EQ(6, p_hero->getGx());
  holdFor(K::RIGHTARROW, 4);
  EXPECT_EQ(6, p_hero->getGx());
  holdFor(K::S, 1);
  EXPECT_EQ(3, p_hero->getGy());
}

TEST_F(HeroTest, ABlockedStepCostsNoCooldownSoTurningMovesAtOnce) {
  holdFor(K::W, 1);
  ASSERT_EQ(1, p_hero->getGy());
  holdFor(K::W, 5);  // against the wall of row 0
  EXPECT_EQ(1, p_hero->getGy());
  step();
  key(K::UPARROW, ot::KEY_DOWN);  // blocked, and in the same frame
  key(K::A, ot::KEY_DOWN);        // the next direction moves
  key(K::D, ot::KEY_DOWN);        // but only one step a frame
  EXPECT_EQ(2, p_hero->getGx());
}

TEST_F(HeroTest, BlockLastsTenSteps) {
  key(K::LEFTSHIFT, ot::KEY_PRESSED);
  EXPECT_TRUE(p_hero->isBlocking() && p_hero->absorbBlow());
  EXPECT_EQ(10, p_hero->getHp());
  step(10);
  EXPECT_FALSE(p_hero->isBlocking() || p_hero->absorbBlow());
  key(K::RIGHTSHIFT, ot::KEY_PRESSED);
  EXPECT_FALSE(p_hero->isBlocking());
  step(15);
  key(K::RIGHTSHIFT, ot::KEY_PRESSED);
  EXPECT_TRUE(p_hero->isBlocking());
}

TEST_F(HeroTest, ABlowMakesTheHeroInvulnerableForTenSteps) {
  EXPECT_FALSE(p_hero->takeDamage(3));
  EXPECT_EQ(7, p_hero->getHp());
  step(9);
  EXPECT_FALSE(p_hero->takeDamage(3));
  EXPECT_EQ(7, p_hero->getHp());
  step(1);
  p_hero->takeDamage(3);
  EXPECT_EQ(4, p_hero->getHp());
  EXPECT_EQ(4, ot::DisplayManager::getInstance().getShakeDuration());
}

// Mouse offset from the hero in spaces, and the aim; a cell is 12.8 by 32 pixels.
class HeroAim : public HeroTest, public ::testing::WithParamInterface<std::tuple<Vector, int, int>> {};

TEST_P(HeroAim, AimsByWhatTheEyeSeesWithTiesGoingSideways) {
  auto [offset, dx, dy] = GetParam();
  mouse(ot::MOVED, ot::Mouse::UNDEFINED_MOUSE_BUTTON, p_hero->getPosition() + offset);
  int aim_x = 9, aim_y = 9;
  p_hero->computeAim(aim_x, aim_y);
  EXPECT_EQ(std::make_pair(dx, dy), std::make_pair(aim_x, aim_y));
}

INSTANTIATE_TEST_SUITE_P(
    Offsets, HeroAim,
    ::testing::Values(std::make_tuple(Vector(3, 1), 1, 0), std::make_tuple(Vector(2, 1), 0, 1),
                      std::make_tuple(Vector(-3, -1), -1, 0), std::make_tuple(Vector(0, -1), 0, -1),
                      std::make_tuple(Vector(0, 0), 1, 0), std::make_tuple(Vector(5, 2), 1, 0),
                      std::make_tuple(Vector(-5, 2), -1, 0), std::make_tuple(Vector(2, -1), 0, -1)));

TEST_F(HeroTest, ASwordBlowStrikesTheAimedTileOncePerEightSteps) {
  clickAt(ot::Mouse::LEFT, Vector(5, 0));
  ASSERT_EQ(1, countOf("Slash"));
  EXPECT_EQ(Level::tileCenter(4, 2),
            ot::WorldManager::getInstance().objectsOfType("Slash")[0]->getPosition());
  step(7);
  clickAt(ot::Mouse::LEFT, Vector(5, 0));
  EXPECT_EQ(1, countOf("Slash"));
  step(1);
  mouse(ot::PRESSED, ot::Mouse::LEFT, p_hero->getPosition() + Vector(5, 0));  // holding doesn't strike
  EXPECT_EQ(1, countOf("Slash"));
  clickAt(ot::Mouse::LEFT, Vector(5, 0));
  EXPECT_EQ(2, countOf("Slash"));
}

TEST_F(HeroTest, ABlowAtAWallIsSpent) {
  holdFor(K::W, 1);  // to (3,1), under the wall
  clickAt(ot::Mouse::LEFT, Vector(0, -3));
  EXPECT_EQ(0, countOf("Slash"));
  clickAt(ot::Mouse::LEFT, Vector(5, 0));
  EXPECT_EQ(0, countOf("Slash"));  // the cooldown was spent on the wall
  p_hero->setGridPos(34, 15);
  step(8);
  clickAt(ot::Mouse::LEFT, Vector(5, 0));
  ASSERT_EQ(1, countOf("Slash"));
  EXPECT_EQ(Level::tileCenter(35, 15),
            ot::WorldManager::getInstance().objectsOfType("Slash")[0]->getPosition());
}

TEST_F(HeroTest, AnArrowLeavesFromTheHerosTileOncePerTwelveSteps) {
  clickAt(ot::Mouse::RIGHT, Vector(0, 4));
  ASSERT_EQ(1, countOf("Projectile"));
  auto* p_arrow = dynamic_cast<Projectile*>(ot::WorldManager::getInstance().objectsOfType("Projectile")[0]);
  EXPECT_EQ(p_hero->getPosition(), p_arrow->getPosition());
  step(1);
  EXPECT_EQ(3, p_arrow->getGy());  // flying down
  step(10);
  clickAt(ot::Mouse::RIGHT, Vector(5, 0));
  EXPECT_EQ(1, countOf("Projectile"));
  step(1);
  clickAt(ot::Mouse::RIGHT, Vector(5, 0));
  EXPECT_EQ(2, countOf("Projectile"));  // the first, stopped by a wall, awaits deletion
  clickAt(ot::Mouse::MIDDLE, Vector(5, 0));
  EXPECT_EQ(2, countOf("Projectile"));
}

TEST_F(HeroTest, HudShowsChangesAtOnce) {
  createHud();
  EXPECT_EQ(10, hudValue("HP"));
  p_hero->addKillReward(15);
  EXPECT_EQ(std::make_tuple(15, 15, 1),
            std::make_tuple(hudValue("Gold"), hudValue("Score"), p_hero->getKills()));
  EXPECT_FALSE(p_hero->spendGold(16));
  EXPECT_EQ(15, p_hero->getGold());
  EXPECT_TRUE(p_hero->spendGold(15));
  EXPECT_EQ(std::make_pair(0, 15), std::make_pair(hudValue("Gold"), hudValue("Score")));
  p_hero->takeDamage(7);
  EXPECT_EQ(3, hudValue("HP"));
  p_hero->addMaxHp(5);
  EXPECT_EQ(std::make_tuple(8, 15, 8), std::make_tuple(p_hero->getHp(), p_hero->getMaxHp(), hudValue("HP")));
  p_hero->healFull();
  EXPECT_EQ(15, hudValue("HP"));
}

TEST_F(HeroTest, DeathMakesTheEndScreenInTheSameFrame) {
  createHud();
  EXPECT_TRUE(p_hero->takeDamage(12));
  EXPECT_EQ(0, hudValue("HP"));
  EXPECT_EQ(1, countOf("GameOver"));
  ot_test::runFrames(1);
  EXPECT_EQ(0, countOf("Hero") + countOf("Shop"));  // the shop goes with the hero
  EXPECT_EQ(nullptr, ot::WorldManager::getInstance().getViewFollowing());
}

TEST_F(HeroTest, QEndsTheGame) {
  key(K::E, ot::KEY_PRESSED);  // on plain floor: nothing
  EXPECT_FALSE(p_hero->getShop()->isOpen() || ot::GameManager::getInstance().getGameOver());
  EXPECT_EQ(0, getLevel()->getFloor());
  key(K::Q, ot::KEY_PRESSED);
  EXPECT_TRUE(ot::GameManager::getInstance().getGameOver());
}

TEST_F(HeroTest, TheShopFreezesTheHeroButNotQ) {
  p_hero->setGridPos(33, 6);
  key(K::E, ot::KEY_PRESSED);
  ASSERT_TRUE(p_hero->getShop()->isOpen());
  holdFor(K::D, 3);
  key(K::LEFTSHIFT, ot::KEY_PRESSED);
  clickAt(ot::Mouse::LEFT, Vector(5, 0));
  clickAt(ot::Mouse::RIGHT, Vector(5, 0));
  EXPECT_EQ(33, p_hero->getGx());
  EXPECT_FALSE(p_hero->isBlocking() || p_hero->takeDamage(5));
  EXPECT_EQ(0, countOf("Slash") + countOf("Projectile"));
  EXPECT_EQ(10, p_hero->getHp());
  key(K::E, ot::KEY_PRESSED);
  EXPECT_FALSE(p_hero->getShop()->isOpen());
  holdFor(K::D, 1);
  EXPECT_EQ(34, p_hero->getGx());
  p_hero->setGridPos(33, 6);
  key(K::E, ot::KEY_PRESSED);
  key(K::Q, ot::KEY_PRESSED);
  EXPECT_TRUE(ot::GameManager::getInstance().getGameOver());
}

}  // namespace
