#include "engine/core/Manager.h"

#include <gtest/gtest.h>

#include "engine/core/EventView.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot_test;

static ot::WorldManager& world() { return ot::WorldManager::getInstance(); }

static int send(const std::string& label) {
  ot::EventView e;
  e.setType(label);
  return world().onEvent(&e);
}

class ManagerTest : public HeadlessEngine {
  int logLevel() const override { return 1; }
};

TEST_F(ManagerTest, InterestTableHoldsAHundredLabels) {
  auto* p_spy = new SpyObject;
  for (int i = 0; i < 100; i++) ASSERT_EQ(0, world().registerInterest(p_spy, "l" + std::to_string(i)));
  EXPECT_EQ(0, world().registerInterest(p_spy, "l7"));
  EXPECT_EQ(1, send("l7"));
  EXPECT_TRUE(logHas(logMessages(), "Manager::registerInterest(): Warning! Not adding id " +
                                        std::to_string(p_spy->getId()) + " (Spy) twice for event l7."));
  ot::LogManager::getInstance().setLogLevel(100);
  size_t lines = logMessages().size();
  EXPECT_EQ(-1, world().registerInterest(p_spy, "l100"));
  EXPECT_EQ(lines, logMessages().size());
  // Emptying row 0 removes it and moves the later rows down, making room.
  EXPECT_EQ(0, world().unregisterInterest(p_spy, "l0"));
  EXPECT_EQ(0, world().registerInterest(p_spy, "l100"));
  EXPECT_EQ(3, send("l1") + send("l99") + send("l100"));
  for (int i = 1; i <= 100; i++) world().unregisterInterest(p_spy, "l" + std::to_string(i));
}

TEST_F(ManagerTest, WarnsOfMisuse) {
  ot::Manager m;
  m.startUp();
  m.startUp();
  m.shutDown();
  m.shutDown();
  auto* p_spy = new SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  ot::Event undefined;
  ot::EventView view;
  EXPECT_EQ(
      0, ot::GameManager::getInstance().onEvent(&undefined) + ot::GameManager::getInstance().onEvent(&view));
  EXPECT_EQ(-1, ot::GameManager::getInstance().registerInterest(p_spy, ot::VIEW_EVENT));
  EXPECT_TRUE(p_spy->received.empty());
  auto log = logMessages();
  EXPECT_EQ((std::vector<std::string>{
                "Manager::startUp(): Warning! Manager already started.",
                "Manager::shutDown(): Warning! Manager not started.",
                "Manager(GameManager)::onEvent(): Warning! Event type ot-undefined is undefined.",
                "Manager(GameManager)::onEvent(): Error! Event type ot-view not valid.",
                "Manager(GameManager)::registerInterest(): Event 'ot-view' not valid for this Manager"}),
            std::vector<std::string>(log.end() - 5, log.end()));
}

TEST_F(ManagerTest, DeliveryWalksACopy) {
  SpyObject* p[3] = {new SpyObject, new SpyObject, new SpyObject};
  for (SpyObject* p_spy : p) p_spy->registerInterest("ping");
  p[1]->result = 0;
  p[0]->on_event = [&p](SpyObject& self, const ot::Event*) {
    self.unregisterInterest("ping");
    p[1]->unregisterInterest("ping");
    p[2]->setActive(false);
  };
  EXPECT_EQ(1, send("ping"));
  EXPECT_EQ(1, p[1]->count("ping")) << "unregistered during delivery, still in the copy";
  EXPECT_EQ(0, send("ping") + p[2]->count("ping"));
}

TEST_F(ManagerTest, AHandlerMaySendTheSameEventAgainWhileItIsDelivered) {
  SpyObject* p[2] = {new SpyObject, new SpyObject};
  for (SpyObject* p_spy : p) p_spy->registerInterest("echo");
  int inner = -1;
  p[0]->on_event = [&inner](SpyObject& self, const ot::Event*) {
    if (self.count("echo") == 1) inner = send("echo");
  };
  EXPECT_EQ(2, send("echo"));
  EXPECT_EQ(2, inner);
  EXPECT_EQ(2, p[1]->count("echo"));
}
