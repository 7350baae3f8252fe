#include "engine/presentation/ViewObject.h"

#include "engine/core/EventView.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"

namespace {

using ot::Vector;
using ot::ViewObject;

// The engine's view is 80 by 24 spaces here.
class ViewObjectTest : public ot_test::HeadlessEngine {};

TEST_F(ViewObjectTest, LocationsFollowTheView) {
  auto* p_framed = new ViewObject;
  auto* p_plain = new ViewObject;
  EXPECT_TRUE(p_framed->isModified(ViewObject::VALUE) && p_framed->isModified(ViewObject::APPEARANCE));
  // By column and by row of the nine places; a frame takes a line above and below.
  const float w = 80, h = 24, xs[] = {w / 6, w / 2, w * 5 / 6};
  const float framed_ys[] = {1, h / 2, h - 2}, plain_ys[] = {0, h / 2 - 1, h - 1};
  p_plain->setBorder(false);
  for (int at = ot::TOP_LEFT; at <= ot::BOTTOM_RIGHT; at++) {
    p_framed->setLocation(at);
    p_plain->setLocation(at);
    EXPECT_EQ(Vector(xs[at % 3], framed_ys[at / 3]), p_framed->getPosition()) << at;
    EXPECT_EQ(Vector(xs[at % 3], plain_ys[at / 3]), p_plain->getPosition()) << at;
  }
  for (int wrong : {9, -1}) {
    p_framed->setLocation(wrong);
    EXPECT_TRUE(ot_test::logHas(logMessages(), "ViewObject::setLocation(): Warning! Location out of range (" +
                                                   std::to_string(wrong) + "). Ignored."));
  }
  EXPECT_EQ(ot::BOTTOM_RIGHT, p_framed->getLocation());
  // The border moves a located item back; later resizes of the view move nothing.
  p_plain->setBorder(true);
  ot::WorldManager::getInstance().setView(ot::Box(Vector(0, 0), 120, 40));
  EXPECT_EQ(p_framed->getPosition(), p_plain->getPosition());
  p_plain->setLocation(ot::BOTTOM_LEFT);
  EXPECT_EQ(Vector(120.0f / 6, 38), p_plain->getPosition());
}

TEST_F(ViewObjectTest, ViewEventReplacesOrAddsForEveryItemOfItsTag) {
  ViewObject* items[] = {new ViewObject, new ViewObject, new ViewObject};
  for (ViewObject* p_item : items) p_item->setViewString(p_item == items[2] ? "Score" : "Gold");
  auto send = [](const char* tag, int value, bool delta) {
    ot::EventView event(tag, value, delta);
    return ot::WorldManager::getInstance().onEvent(&event);
  };
  EXPECT_EQ(2, send("Gold", 7, false));
  send("Gold", 5, true);
  send("Gold", -20, true);
  EXPECT_EQ(0, send("Nobody", 3, false));
  EXPECT_TRUE(items[0]->getValue() == -8 && items[1]->getValue() == -8 && items[2]->getValue() == 0);
}

TEST_F(ViewObjectTest, OnlyChangesMarkTheValueApart) {
  auto* p_item = new ViewObject;
  p_item->setModified(0);
  EXPECT_EQ(0, p_item->setPosition(Vector(40, 1)));  // where TOP_CENTER put it
  p_item->setValue(0);
  p_item->setLocation(ot::TOP_CENTER);
  EXPECT_EQ(0u, p_item->getModified());
  p_item->setValue(5);
  EXPECT_EQ(ViewObject::VALUE, p_item->getModified());
  p_item->setModified(0);
  p_item->setPosition(Vector(10, 5));
  p_item->setBorder(false);
  EXPECT_EQ(Vector(10, 5), p_item->getPosition());
  EXPECT_EQ(ViewObject::APPEARANCE, p_item->getModified() & (ViewObject::APPEARANCE | ViewObject::VALUE));
  EXPECT_EQ(p_item->Object::toString() + ", , 5, value true, border false, White, unknown",
            p_item->toString());
}

}  // namespace
