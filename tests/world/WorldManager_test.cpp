#include "engine/world/WorldManager.h"

#include <gtest/gtest.h>

#include "engine/core/EventStep.h"
#include "engine/presentation/ViewObject.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::Box;
using ot::Vector;
using ot_test::logHas;
using ot_test::SpyObject;

namespace {

class World : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 2; }
  static ot::WorldManager& world() { return ot::WorldManager::getInstance(); }
};

// Counts its drawings and its deletion.
class Drawn : public SpyObject {
 public:
  explicit Drawn(int* p_deleted = nullptr) : p_deleted_(p_deleted) {}
  ~Drawn() override {
    if (p_deleted_) (*p_deleted_)++;
  }
  int draw() override {
    draws++;
    return 0;
  }
  int draws = 0;

 private:
  int* p_deleted_;
};

}  // namespace

TEST_F(World, MarkedTwiceIsDeletedOnceAtTheEndOfUpdate) {
  int deleted = 0;
  auto* p_o = new Drawn(&deleted);
  EXPECT_EQ(0, world().markForDelete(p_o));
  EXPECT_EQ(0, world().markForDelete(p_o));
  EXPECT_EQ(0, deleted);
  world().update();
  EXPECT_EQ(1, deleted);
  EXPECT_EQ(0, world().getAllObjects(true).getCount());
}

TEST_F(World, MarkedInAStepHandlerIsGoneBeforeTheDraw) {
  int deleted = 0;
  auto* p_o = new Drawn(&deleted);
  p_o->registerInterest(ot::STEP_EVENT);
  p_o->on_event = [](SpyObject& self, const ot::Event*) {
    ot::WorldManager::getInstance().markForDelete(&self);
  };
  ot_test::runFrames(1);
  EXPECT_EQ(1, deleted);
}

TEST_F(World, ObjectMadeDuringUpdateMovesFromTheNextFrame) {
  auto* p_maker = new SpyObject;
  p_maker->setSolidness(ot::SPECTRAL);
  p_maker->setVelocity(Vector(1, 0));
  SpyObject* p_made = nullptr;
  auto* p_wall = new SpyObject;
  p_wall->setSolidness(ot::SOFT);
  p_wall->setPosition(Vector(10, 10));
  auto* p_mover = new SpyObject;
  p_mover->setSolidness(ot::SOFT);
  p_mover->setPosition(Vector(9, 10));
  p_mover->setVelocity(Vector(1, 0));
  p_mover->on_event = [&p_made](SpyObject&, const ot::Event*) {
    if (p_made) return;
    p_made = new SpyObject;
    p_made->setSolidness(ot::SPECTRAL);
    p_made->setPosition(Vector(20, 20));
    p_made->setVelocity(Vector(1, 0));
  };
  world().update();
  ASSERT_NE(nullptr, p_made);
  EXPECT_EQ(Vector(20, 20), p_made->getPosition());
  world().update();
  EXPECT_EQ(Vector(21, 20), p_made->getPosition());
  (void)p_maker;
}

TEST_F(World, DrawsByAltitudeWhatTheViewShowsAndEveryViewObject) {
  auto* p_in = new Drawn;
  p_in->setPosition(Vector(10, 10));
  auto* p_out = new Drawn;
  p_out->setPosition(Vector(500, 500));
  auto* p_hidden = new Drawn;
  p_hidden->setVisible(false);
  auto* p_hud = new ot::ViewObject;
  p_hud->setPosition(Vector(900, 900));
  world().draw();
  EXPECT_EQ(1, p_in->draws);
  EXPECT_EQ(0, p_out->draws);
  EXPECT_EQ(0, p_hidden->draws);
}

TEST_F(World, QueriesByPlaceAndKind) {
  auto* p_spectral = new SpyObject("Ghost");
  p_spectral->setSolidness(ot::SPECTRAL);
  p_spectral->setPosition(Vector(10, 10));
  auto* p_far = new SpyObject("Rock");
  p_far->setPosition(Vector(30, 10));
  EXPECT_EQ(1, world().objectsAtPosition(Vector(10.5f, 10)).getCount());
  EXPECT_EQ(2, world().objectsInBox(Box(Vector(0, 0), 40, 20)).getCount());
  EXPECT_EQ(1, world().objectsOnLine(ot::Line(Vector(0, 10), Vector(20, 10))).getCount());
  // A circle finds a box only by holding one of its corners.
  EXPECT_EQ(1, world().objectsInCircle(ot::Circle(Vector(30, 10), 1)).getCount());
  EXPECT_EQ(0, world().objectsInCircle(ot::Circle(Vector(30, 10), 0.5f)).getCount());
  EXPECT_EQ(1, world().objectsOfType("Rock").getCount());
  EXPECT_EQ(p_far, world().objectWithId(p_far->getId()));
  p_far->setActive(false);
  EXPECT_EQ(p_far, world().objectWithId(p_far->getId())) << "inactive objects are found by id too";
  EXPECT_EQ(nullptr, world().objectWithId(-7));
  EXPECT_EQ(1, world().getAllObjects().getCount());
  EXPECT_EQ(2, world().getAllObjects(true).getCount());
}

TEST_F(World, FollowingNeedsAnObjectOfTheWorld) {
  auto* p_o = new SpyObject;
  EXPECT_EQ(0, world().setViewFollowing(p_o));
  int not_an_object = 0;  // only compared, never dereferenced
  EXPECT_EQ(-1, world().setViewFollowing(reinterpret_cast<ot::Object*>(&not_an_object)));
  EXPECT_EQ(p_o, world().getViewFollowing());
  EXPECT_EQ(0, world().setViewFollowing(nullptr));
  EXPECT_EQ(nullptr, world().getViewFollowing());
}

TEST_F(World, ViewStaysInsideTheBoundary) {
  world().setBoundary(Box(Vector(0, 0), 100, 50));
  world().setView(Box(Vector(0, 0), 40, 20));
  world().setViewPosition(Vector(99, 49));
  EXPECT_EQ(Vector(60, 30), world().getView().getCorner());
  world().setViewPosition(Vector(0, 0));
  EXPECT_EQ(Vector(0, 0), world().getView().getCorner());
  world().setView(Box(Vector(0, 0), 200, 20));
  world().setViewPosition(Vector(99, 25));
  EXPECT_EQ(0.0f, world().getView().getCorner().getX()) << "a view wider than the world stays at 0";
}

TEST_F(World, SlackOutOfRangeWarnsButIsKept) {
  world().setViewSlack(Vector(1.5f, 0.5f));
  EXPECT_EQ(Vector(1.5f, 0.5f), world().getViewSlack());
  EXPECT_TRUE(
      logHas(logMessages(), "WorldManager::setViewSlack(): Warning! view slack units out of range [0-1]"));
}

TEST_F(World, InputAndAutomaticLabelsAreRefused) {
  EXPECT_FALSE(world().isValid(ot::STEP_EVENT));
  EXPECT_FALSE(world().isValid(ot::COLLISION_EVENT));
  EXPECT_TRUE(world().isValid("my-game-label"));
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "WorldManager::isValid(): WorldManager does not handle ot-step"));
  EXPECT_TRUE(logHas(log, "WorldManager::isValid(): Event ot-collision handled automatically."));
}

TEST_F(World, ObjectsMadeBeforeTheStartStayOutside) {
  world().shutDown();
  auto* p_o = new SpyObject;
  auto log = logMessages();
  EXPECT_TRUE(logHas(
      log, "WorldManager::insertObject(): Warning! Not adding Object " + std::to_string(p_o->getId())));
  EXPECT_TRUE(logHas(log, "                              because WorldManager not started."));
  delete p_o;
  world().startUp();
}
