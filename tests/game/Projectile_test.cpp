#include "game/Projectile.h"

#include <tuple>

#include "engine/presentation/Sprite.h"
#include "engine/world/Geometry.h"
#include "engine/world/WorldManager.h"
#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

class ProjectileTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    makeLevel();
  }
};

class ProjectileSprite : public ProjectileTest,
                         public ::testing::WithParamInterface<std::tuple<int, int, std::string>> {};

TEST_P(ProjectileSprite, PointsTheWayItFlies) {
  loadSprites();
  auto [dx, dy, label] = GetParam();
  auto* p_arrow = new Projectile(5, 5, dx, dy, 1, nullptr);
  ASSERT_NE(nullptr, p_arrow->getAnimation().getSprite());
  EXPECT_EQ(label, p_arrow->getAnimation().getSprite()->getLabel());
}

INSTANTIATE_TEST_SUITE_P(Directions, ProjectileSprite,
                         ::testing::Values(std::make_tuple(1, 0, "arrow-right"),
                                           std::make_tuple(-1, 0, "arrow-left"),
                                           std::make_tuple(0, 1, "arrow-down"),
                                           std::make_tuple(0, -1, "arrow-up"),
                                           std::make_tuple(0, 0, "arrow-down")));

TEST_F(ProjectileTest, MovesOnTheFirstStepThenEveryOtherStep) {
  auto* p_arrow = new Projectile(7, 26, 1, 0, 1, nullptr);
  EXPECT_EQ(Level::tileCenter(7, 26), p_arrow->getPosition());
  EXPECT_EQ(ot::SPECTRAL, p_arrow->getSolidness());
  for (int expected : {8, 8, 9, 9, 10}) {
    step();
    EXPECT_EQ(expected, p_arrow->getGx());
  }
  EXPECT_EQ(Level::tileCenter(10, 26), p_arrow->getPosition());
}

TEST_F(ProjectileTest, HitsOnItsTenthTile) {
  new Projectile(7, 26, 1, 0, 1, nullptr);
  ot_test::runFrames(19);  // ten moves
  EXPECT_EQ(0, countOf("Projectile"));

  GridEntity* p_target = creatureAt(17, 26, 3);
  new Projectile(7, 26, 1, 0, 2, nullptr);
  ot_test::runFrames(19);
  EXPECT_EQ(1, p_target->getHp());
  EXPECT_EQ(0, countOf("Projectile"));
}

TEST_F(ProjectileTest, AWallEndsItOnItsFirstMoveWithASparkWhereItStood) {
  new Projectile(3, 1, 0, -1, 1, nullptr);
  ot_test::runFrames(1);
  EXPECT_EQ(0, countOf("Projectile"));
  ot::ObjectList sparks = ot::WorldManager::getInstance().objectsOfType("Particle");
  ASSERT_FALSE(sparks.isEmpty());
  EXPECT_LT(ot::distance(sparks[0]->getPosition(), Level::tileCenter(3, 1)), 3.0f);
}

TEST_F(ProjectileTest, OnlyAClosedDoorStopsIt) {
  auto* p_stopped = new Projectile(34, 15, 1, 0, 1, nullptr);
  step();
  EXPECT_EQ(34, p_stopped->getGx());
  getLevel()->setDoorsOpen(true);
  auto* p_passing = new Projectile(34, 15, 1, 0, 1, nullptr);
  step();
  EXPECT_EQ(35, p_passing->getGx());
}

TEST_F(ProjectileTest, HitsTheFirstCreatureOnceButNeverItsOwner) {
  GridEntity* p_owner = creatureAt(8, 26, 5);
  GridEntity* p_first = creatureAt(9, 26, 5);
  GridEntity* p_second = creatureAt(10, 26, 5);
  new Projectile(7, 26, 1, 0, 2, p_owner);
  ot_test::runFrames(9);
  EXPECT_EQ(5, p_owner->getHp());
  EXPECT_EQ(3, p_first->getHp());
  EXPECT_EQ(5, p_second->getHp());
  EXPECT_EQ(0, countOf("Projectile"));
}

}  // namespace
