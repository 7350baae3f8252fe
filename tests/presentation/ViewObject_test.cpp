#include "engine/presentation/ViewObject.h"

#include <gtest/gtest.h>

#include <string>

#include "engine/core/EventStep.h"
#include "engine/core/EventView.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Vector;
using ot::ViewObject;

// The engine's view is 80 by 24 spaces here.
class ViewObjectTest : public ot_test::HeadlessEngine {};

int sendView(const std::string& tag, int value, bool delta) {
  ot::EventView event(tag, value, delta);
  return ot::WorldManager::getInstance().onEvent(&event);
}

TEST_F(ViewObjectTest, NewItemStandsTopCenterFramedAndMarkedWhole) {
  auto* p_item = new ViewObject;
  EXPECT_EQ(4, p_item->getAltitude());
  EXPECT_EQ(ot::TOP_CENTER, p_item->getLocation());
  EXPECT_EQ(Vector(40, 1), p_item->getPosition());
  EXPECT_TRUE(p_item->isModified(ViewObject::VALUE));
  EXPECT_TRUE(p_item->isModified(ViewObject::APPEARANCE));
}

TEST_F(ViewObjectTest, LocationsFollowViewWithAndWithoutBorder) {
  struct Place {
    int location;
    float x, y_border, y_plain;
  };
  const float w = 80, h = 24;
  const Place places[] = {
      {ot::TOP_LEFT, w * 1 / 6, 1, 0},
      {ot::TOP_CENTER, w * 3 / 6, 1, 0},
      {ot::TOP_RIGHT, w * 5 / 6, 1, 0},
      {ot::CENTER_LEFT, w * 1 / 6, 12, 11},
      {ot::CENTER_CENTER, w / 2, 12, 11},
      {ot::CENTER_RIGHT, w * 5 / 6, 12, 11},
      {ot::BOTTOM_LEFT, w * 1 / 6, h - 2, h - 1},
      {ot::BOTTOM_CENTER, w * 3 / 6, h - 2, h - 1},
      {ot::BOTTOM_RIGHT, w * 5 / 6, h - 2, h - 1},
  };
  auto* p_framed = new ViewObject;
  auto* p_plain = new ViewObject;
  p_plain->setBorder(false);
  for (const Place& place : places) {
    SCOPED_TRACE(place.location);
    p_framed->setLocation(place.location);
    p_plain->setLocation(place.location);
    EXPECT_EQ(place.location, p_framed->getLocation());
    EXPECT_EQ(Vector(place.x, place.y_border), p_framed->getPosition());
    EXPECT_EQ(Vector(place.x, place.y_plain), p_plain->getPosition());
  }
}

TEST_F(ViewObjectTest, BorderMovesLocatedItemButNotPlacedOne) {
  auto* p_located = new ViewObject;
  p_located->setLocation(ot::TOP_LEFT);
  p_located->setBorder(false);
  EXPECT_EQ(Vector(80.0f / 6, 0), p_located->getPosition());
  EXPECT_EQ(ot::TOP_LEFT, p_located->getLocation());
  p_located->setBorder(true);
  EXPECT_EQ(Vector(80.0f / 6, 1), p_located->getPosition());

  auto* p_placed = new ViewObject;
  p_placed->setPosition(Vector(10, 5));
  p_placed->setBorder(false);
  EXPECT_EQ(Vector(10, 5), p_placed->getPosition());
  EXPECT_EQ(-1, p_placed->getLocation());
}

TEST_F(ViewObjectTest, SetPositionFreesLocationUnlessUnchanged) {
  auto* p_item = new ViewObject;
  EXPECT_EQ(0, p_item->setPosition(Vector(40, 1)));
  EXPECT_EQ(ot::TOP_CENTER, p_item->getLocation());
  p_item->setPosition(Vector(3, 4));
  EXPECT_EQ(-1, p_item->getLocation());
  EXPECT_EQ(Vector(3, 4), p_item->getPosition());
  p_item->setLocation(ot::TOP_CENTER);
  EXPECT_EQ(Vector(40, 1), p_item->getPosition());
}

TEST_F(ViewObjectTest, LocationOutOfRangeRefusedWithWarning) {
  auto* p_item = new ViewObject;
  p_item->setLocation(ot::BOTTOM_RIGHT);
  Vector before = p_item->getPosition();
  p_item->setLocation(9);
  p_item->setLocation(-1);
  EXPECT_EQ(ot::BOTTOM_RIGHT, p_item->getLocation());
  EXPECT_EQ(before, p_item->getPosition());
  auto messages = logMessages();
  EXPECT_TRUE(
      ot_test::logHas(messages, "ViewObject::setLocation(): Warning! Location out of range (9). Ignored."));
  EXPECT_TRUE(
      ot_test::logHas(messages, "ViewObject::setLocation(): Warning! Location out of range (-1). Ignored."));
}

TEST_F(ViewObjectTest, ResizedViewLeavesItemsWhereTheyAre) {
  auto* p_item = new ViewObject;
  p_item->setLocation(ot::BOTTOM_RIGHT);
  ot::WorldManager::getInstance().setView(ot::Box(Vector(0, 0), 120, 40));
  EXPECT_EQ(Vector(80.0f * 5 / 6, 22), p_item->getPosition());
  p_item->setLocation(ot::BOTTOM_LEFT);
  EXPECT_EQ(Vector(120.0f / 6, 38), p_item->getPosition());
}

TEST_F(ViewObjectTest, ViewEventReplacesOrAddsForEveryItemOfItsTag) {
  auto* p_gold = new ViewObject;
  auto* p_gold_too = new ViewObject;
  auto* p_score = new ViewObject;
  p_gold->setViewString("Gold");
  p_gold_too->setViewString("Gold");
  p_score->setViewString("Score");

  EXPECT_EQ(2, sendView("Gold", 7, false));
  sendView("Gold", 5, true);
  EXPECT_EQ(12, p_gold->getValue());
  sendView("Gold", -20, true);
  EXPECT_EQ(-8, p_gold->getValue());
  EXPECT_EQ(-8, p_gold_too->getValue());
  EXPECT_EQ(0, p_score->getValue());
  EXPECT_EQ(0, sendView("Nobody", 3, false));
  ot::EventStep step;
  EXPECT_EQ(0, p_gold->eventHandler(&step));
}

TEST_F(ViewObjectTest, ValueAndAppearanceMarkSeparateBits) {
  auto* p_item = new ViewObject;
  p_item->setModified(0);
  p_item->setValue(0);
  p_item->setColor(ot::WHITE);
  p_item->setLocation(ot::TOP_CENTER);
  EXPECT_FALSE(p_item->isModified());

  p_item->setValue(3);
  EXPECT_EQ(ViewObject::VALUE, p_item->getModified());
  p_item->setModified(0);
  p_item->setColor(ot::RED);
  EXPECT_EQ(ViewObject::APPEARANCE, p_item->getModified());
  p_item->setModified(0);
  p_item->setPosition(Vector(2, 2));
  EXPECT_TRUE(p_item->isModified(ViewObject::APPEARANCE));
  EXPECT_FALSE(p_item->isModified(ViewObject::VALUE));
}

TEST_F(ViewObjectTest, DrawMakesOneCallPlainAndFiveFramed) {
  // Headless, every drawing call answers -1, so the sum counts them.
  auto* p_item = new ViewObject;
  EXPECT_EQ(-5, p_item->draw());
  p_item->setBorder(false);
  EXPECT_EQ(-1, p_item->draw());
}

TEST_F(ViewObjectTest, ToStringAddsViewFields) {
  auto* p_item = new ViewObject;
  p_item->setViewString("Gold");
  p_item->setValue(5);
  p_item->setBorder(false);
  p_item->setColor(ot::RED);
  p_item->setLocation(ot::BOTTOM_LEFT);
  EXPECT_EQ(p_item->Object::toString() + ", Gold, 5, value true, border false, Red, bot-left",
            p_item->toString());
  p_item->setPosition(Vector(1, 1));
  EXPECT_EQ(p_item->Object::toString() + ", Gold, 5, value true, border false, Red, unknown",
            p_item->toString());
}

}  // namespace
