#include "engine/world/WorldManager.h"

#include "engine/presentation/ViewObject.h"
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

class World : public HeadlessEngine {
 protected:
  int logLevel() const override { return 2; }
  static WorldManager& world() { return WorldManager::getInstance(); }
  Traced<SpyObject>* traced(std::string type) { return new Traced<SpyObject>(&trace_, type); }
  Trace trace_;  // outlives the objects, which die in TearDown
};

}  // namespace

TEST_F(World, MarkedTwiceInAStepHandlerIsDeletedOnceBeforeTheDraw) {
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

TEST_F(World, DrawsByRisingAltitudeWhatTouchesTheViewAndEveryViewObject) {
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

TEST_F(World, WarnsOfSlackOutOfRangeAndOfObjectsMadeBeforeTheStart) {
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
