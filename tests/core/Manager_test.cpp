#include "engine/core/Manager.h"

#include <gtest/gtest.h>

#include "engine/core/EventStep.h"
#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot_test::logHas;
using ot_test::SpyObject;

namespace {

class Interests : public ot_test::HeadlessEngine {
 protected:
  int logLevel() const override { return 1; }
  static ot::WorldManager& world() { return ot::WorldManager::getInstance(); }
};

}  // namespace

TEST_F(Interests, RegisteringTwiceKeepsOneEntry) {
  auto* p_spy = new SpyObject;
  EXPECT_EQ(0, world().registerInterest(p_spy, "tick"));
  EXPECT_EQ(0, world().registerInterest(p_spy, "tick"));
  ot::EventView e;
  e.setType("tick");
  EXPECT_EQ(1, world().onEvent(&e));
  EXPECT_EQ(1, p_spy->count("tick"));
  EXPECT_TRUE(logHas(logMessages(), "Manager::registerInterest(): Warning! Not adding id " +
                                        std::to_string(p_spy->getId()) + " (Spy) twice for event tick."));
  world().unregisterInterest(p_spy, "tick");
}

TEST_F(Interests, TableHoldsAHundredLabels) {
  auto* p_spy = new SpyObject;
  for (int i = 0; i < 100; i++) ASSERT_EQ(0, world().registerInterest(p_spy, "label" + std::to_string(i)));
  EXPECT_EQ(-1, world().registerInterest(p_spy, "one-too-many"));
  EXPECT_EQ(0, world().registerInterest(p_spy, "label7")) << "an existing row still takes objects";
  for (int i = 0; i < 100; i++) world().unregisterInterest(p_spy, "label" + std::to_string(i));
  EXPECT_EQ(0, world().registerInterest(p_spy, "one-too-many"));
  world().unregisterInterest(p_spy, "one-too-many");
}

TEST_F(Interests, UndefinedAndRefusedEventsReachNobody) {
  auto* p_spy = new SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  ot::Event undefined;
  EXPECT_EQ(0, ot::GameManager::getInstance().onEvent(&undefined));
  ot::EventView view;
  EXPECT_EQ(0, ot::GameManager::getInstance().onEvent(&view));
  EXPECT_TRUE(p_spy->received.empty());
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "Manager(GameManager)::onEvent(): Warning! Event type ot-undefined is undefined."));
  EXPECT_TRUE(logHas(log, "Manager(GameManager)::onEvent(): Error! Event type ot-view not valid."));
  EXPECT_EQ(-1, ot::GameManager::getInstance().registerInterest(p_spy, ot::VIEW_EVENT));
  EXPECT_TRUE(logHas(logMessages(),
                     "Manager(GameManager)::registerInterest(): Event 'ot-view' not valid for this Manager"));
}

TEST_F(Interests, DeliveryWalksACopySoHandlersMayUnregister) {
  auto* p_first = new SpyObject;
  auto* p_second = new SpyObject;
  p_first->registerInterest("ping");
  p_second->registerInterest("ping");
  p_first->on_event = [p_second](SpyObject& self, const ot::Event*) {
    self.unregisterInterest("ping");
    p_second->unregisterInterest("ping");
  };
  ot::EventView e;
  e.setType("ping");
  EXPECT_EQ(2, world().onEvent(&e));
  EXPECT_EQ(1, p_second->count("ping")) << "unregistered during delivery, still in the copy";
  EXPECT_EQ(0, world().onEvent(&e));
}

TEST_F(Interests, ObjectMadeInactiveDuringDeliveryIsSkipped) {
  auto* p_first = new SpyObject;
  auto* p_second = new SpyObject;
  p_first->registerInterest("ping");
  p_second->registerInterest("ping");
  p_first->on_event = [p_second](SpyObject&, const ot::Event*) { p_second->setActive(false); };
  ot::EventView e;
  e.setType("ping");
  EXPECT_EQ(1, world().onEvent(&e));
  EXPECT_EQ(0, p_second->count("ping"));
}

TEST_F(Interests, CountsOnlyHandlersThatHandled) {
  auto* p_yes = new SpyObject;
  auto* p_no = new SpyObject;
  p_no->result = 0;
  p_yes->registerInterest(ot::STEP_EVENT);
  p_no->registerInterest(ot::STEP_EVENT);
  ot::EventStep s(3);
  EXPECT_EQ(1, ot::GameManager::getInstance().onEvent(&s));
  EXPECT_EQ(1, p_no->count(ot::STEP_EVENT));
}

TEST_F(Interests, DeliveryIsReentrant) {
  auto* p_spy = new SpyObject;
  p_spy->registerInterest("echo");
  int depth = 0;
  p_spy->on_event = [&depth](SpyObject&, const ot::Event* p_e) {
    if (++depth < 3) ot::WorldManager::getInstance().onEvent(p_e);
  };
  ot::EventView e;
  e.setType("echo");
  world().onEvent(&e);
  EXPECT_EQ(3, p_spy->count("echo"));
}

TEST_F(Interests, RemovingTheLastObjectOfARowKeepsTheOtherRowsInOrder) {
  auto* p_a = new SpyObject;
  auto* p_b = new SpyObject;
  auto* p_c = new SpyObject;
  p_a->registerInterest("x");
  p_b->registerInterest("y");
  p_c->registerInterest("z");
  EXPECT_EQ(0, p_a->unregisterInterest("x"));
  EXPECT_EQ(-1, world().unregisterInterest(p_a, "x"));
  ot::EventView y, z;
  y.setType("y");
  z.setType("z");
  EXPECT_EQ(1, world().onEvent(&y));
  EXPECT_EQ(1, world().onEvent(&z));
  EXPECT_EQ(1, p_b->count("y"));
  EXPECT_EQ(1, p_c->count("z"));
  EXPECT_EQ(0, p_a->count("x"));
}

TEST(Manager, StartAndStopWarnWhenRepeated) {
  ot::Manager m;
  EXPECT_FALSE(m.isStarted());
  EXPECT_EQ("Manager", m.getType());
  EXPECT_FALSE(m.isValid(ot::STEP_EVENT));
  EXPECT_EQ(0, m.startUp());
  EXPECT_EQ(0, m.startUp());
  EXPECT_TRUE(m.isStarted());
  m.shutDown();
  m.shutDown();
  EXPECT_FALSE(m.isStarted());
}
