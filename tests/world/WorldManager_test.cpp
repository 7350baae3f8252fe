#include "engine/world/WorldManager.h"

#include "engine/presentation/ViewObject.h"
#include "engine/world/Circle.h"
#include "engine/world/Line.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;
using namespace ot_test;
using Trace = std::vector<std::string>;

namespace {

// Writes its drawing and its deletion into a trace, to show their order.
template <class Base>
class Traced : public Base {
 public:
  Traced(Trace* p_trace, std::string type) : p_trace_(p_trace) { Base::setType(type); }
  ~Traced() override { p_trace_->push_back("delete " + Base::getType()); }
  int draw() override {
    p_trace_->push_back(Base::getType());
    return 0;
  }
  Trace* p_trace_;
};

class WorldManagerTest : public HeadlessEngine {
 protected:
  int logLevel() const override { return 2; }
  static WorldManager& world() { return WorldManager::getInstance(); }
  Traced<SpyObject>* traced(std::string type) { return new Traced<SpyObject>(&trace_, type); }
  Trace trace_;  // outlives the objects, which die in TearDown
};

}  // namespace

TEST_F(WorldManagerTest, MarkedTwiceInAStepHandlerIsDeletedOnceBeforeTheDraw) {
  auto* p_o = traced("Gone");
  p_o->registerInterest(STEP_EVENT);
  p_o->on_event = [this](SpyObject& self, const Event*) {
    EXPECT_EQ(0, world().markForDelete(&self) + world().markForDelete(&self));
    EXPECT_TRUE(trace_.empty());
  };
  traced("Kept");
  runFrames(1);
  EXPECT_EQ((Trace{"delete Gone", "Kept"}), trace_);
}

TEST_F(WorldManagerTest, DrawsByRisingAltitude) {
  traced("A");
  (new Traced<ViewObject>(&trace_, "Hud"))->setPosition(Vector(900, 900));
  traced("Top")->setAltitude(4);
  traced("Low")->setAltitude(0);
  traced("B");
  traced("Away")->setPosition(Vector(500, 500));
  traced("Edge")->setPosition(Vector(80.5f, 24.5f));  // its box touches the view's far corner
  world().draw();
  EXPECT_EQ((Trace{"Low", "A", "B", "Edge", "Hud", "Top"}), trace_);
}

TEST_F(WorldManagerTest, WarnsOfMisuse) {
  world().setViewSlack(Vector(1.5f, 0.5f));
  EXPECT_EQ(Vector(1.5f, 0.5f), world().getViewSlack());
  world().shutDown();
  auto* p_o = new SpyObject;
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "WorldManager::setViewSlack(): Warning! view slack units out of range [0-1]"));
  EXPECT_TRUE(logHas(
      log, "WorldManager::insertObject(): Warning! Not adding Object " + std::to_string(p_o->getId())));
  EXPECT_TRUE(logHas(log, "                              because WorldManager not started."));
  delete p_o;
  world().startUp();
}

TEST_F(WorldManagerTest, AnObjectMadeDuringTheUpdateMovesFromTheNextFrameOn) {
  SpyObject* p_made = nullptr;
  (new SpyObject("Wall"))->setPosition(Vector(20, 10));
  auto* p_mover = new SpyObject("Mover");
  p_mover->setPosition(Vector(19, 10));
  p_mover->setVelocity(Vector(1, 0));
  p_mover->on_event = [&p_made](SpyObject&, const Event*) {
    if (p_made) return;
    p_made = new SpyObject("Made");
    p_made->setPosition(Vector(5, 5));
    p_made->setVelocity(Vector(1, 0));
  };
  world().update();
  ASSERT_NE(nullptr, p_made);
  EXPECT_EQ(Vector(5, 5), p_made->getPosition());
  world().update();
  EXPECT_EQ(Vector(6, 5), p_made->getPosition());
}

TEST_F(WorldManagerTest, QueriesSeeActiveObjectsOfEveryKind) {
  auto* p_ghost = new SpyObject("Ghost");
  p_ghost->setSolidness(SPECTRAL);
  p_ghost->setPosition(Vector(10, 10));
  auto* p_off = new SpyObject("Off");
  p_off->setPosition(Vector(10, 10));
  p_off->setActive(false);
  EXPECT_EQ(1, world().objectsAtPosition(Vector(10.9f, 10)).getCount());
  EXPECT_EQ(0, world().objectsAtPosition(Vector(11, 10)).getCount());
  EXPECT_EQ(1, world().objectsOnLine(Line(Vector(0, 10), Vector(20, 10))).getCount());
  EXPECT_EQ(1, world().objectsInCircle(Circle(Vector(11, 10), 1)).getCount());
  EXPECT_EQ(0, world().objectsInCircle(Circle(Vector(10, 10), 0.1f)).getCount()) << "inside, but no corner";
  EXPECT_EQ(0, world().objectsOfType("Off").getCount());
  EXPECT_EQ(p_off, world().objectWithId(p_off->getId()));
}
