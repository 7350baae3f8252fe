#include "game/GridEntity.h"

#include <tuple>
#include <utility>

#include "engine/world/WorldManager.h"
#include "game/Level.h"
#include "tests/support/GameWorld.h"

namespace {

// A creature that counts its deaths.
class Dummy : public GridEntity {
 public:
  Dummy(int x, int y, int hp) {
    m_hp = hp;
    m_max_hp = hp;
    setGridPos(x, y);
  }
  void onDeath() override {
    deaths++;
    GridEntity::onDeath();
  }
  int deaths = 0;
};

class GridEntityTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    makeLevel();
  }
};

TEST_F(GridEntityTest, StepsOntoTheNextTileCentre) {
  auto* p_unit = new Dummy(3, 2, 5);
  EXPECT_EQ(ot::SOFT, p_unit->getSolidness());
  EXPECT_EQ(Level::tileCenter(3, 2), p_unit->getPosition());
  EXPECT_TRUE(p_unit->tryMove(1, 0));
  EXPECT_EQ(std::make_pair(4, Level::tileCenter(4, 2)),
            std::make_pair(p_unit->getGx(), p_unit->getPosition()));
}

TEST_F(GridEntityTest, ObstaclesBlockAStep) {
  auto* p_unit = new Dummy(1, 1, 5);
  EXPECT_FALSE(p_unit->tryMove(-1, 0));  // wall
  auto* p_door_side = new Dummy(34, 15, 5);
  EXPECT_FALSE(p_door_side->tryMove(1, 0));  // closed door at (35,15)
  getLevel()->setDoorsOpen(true);
  EXPECT_TRUE(p_door_side->tryMove(1, 0));

  auto* p_other = new Dummy(2, 1, 4);
  EXPECT_FALSE(p_unit->tryMove(1, 0));
  EXPECT_EQ(4, p_other->getHp());  // nobody is harmed by the attempt
  EXPECT_EQ(Level::tileCenter(1, 1), p_unit->getPosition());
  p_other->takeDamage(4);  // dead, waiting for deletion: no longer holds its tile
  EXPECT_TRUE(p_unit->tryMove(1, 0));
}

TEST_F(GridEntityTest, UnitAtFindsOnlyLivingCreaturesOtherThanTheSkipped) {
  auto* p_a = new Dummy(5, 5, 3);
  EXPECT_EQ(p_a, unitAt(5, 5, nullptr));
  EXPECT_EQ(nullptr, unitAt(5, 5, p_a));
  EXPECT_EQ(nullptr, unitAt(6, 5, nullptr));
  p_a->takeDamage(3);
  EXPECT_EQ(nullptr, unitAt(5, 5, nullptr));
}

TEST_F(GridEntityTest, DamageKillsOnce) {
  auto* p_unit = new Dummy(5, 5, 3);
  for (auto [damage, killed, hp] :
       {std::make_tuple(0, false, 3), {1, false, 2}, {7, true, 0}, {1, false, 0}}) {
    EXPECT_EQ(killed, p_unit->takeDamage(damage)) << damage;
    EXPECT_EQ(hp, p_unit->getHp()) << damage;
  }
  EXPECT_EQ(1, p_unit->deaths);
  ot_test::runFrames(1);
  EXPECT_EQ(0, ot::WorldManager::getInstance().objectsOfType("(Undefined)").getCount());
}

TEST_F(GridEntityTest, HitPointsStayWithinTheMaximum) {
  auto* p_unit = new Dummy(5, 5, 6);
  p_unit->heal(3);
  EXPECT_EQ(6, p_unit->getHp());
  p_unit->takeDamage(4);
  p_unit->heal(1);
  EXPECT_EQ(3, p_unit->getHp());
  p_unit->setMaxHp(2);
  EXPECT_EQ(2, p_unit->getHp());
  p_unit->setMaxHp(9);
  EXPECT_EQ(std::make_pair(2, 9), std::make_pair(p_unit->getHp(), p_unit->getMaxHp()));
}

}  // namespace
