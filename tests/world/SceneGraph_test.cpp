#include "engine/world/SceneGraph.h"

#include <gtest/gtest.h>

#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using ot::ObjectList;
using ot::Vector;
using ot_test::logHas;
using ot_test::SpyObject;

namespace {

class Scene : public ot_test::HeadlessEngine {
 protected:
  static ot::SceneGraph& scene() { return ot::WorldManager::getInstance().getSceneGraph(); }
  static bool holds(const ObjectList& list, ot::Object* p_o) {
    for (int i = 0; i < list.getCount(); i++)
      if (list[i] == p_o) return true;
    return false;
  }
  static ot::Object* last(const ObjectList& list) { return list[list.getCount() - 1]; }
};

}  // namespace

TEST_F(Scene, NewObjectEntersEveryListItBelongsTo) {
  auto* p_o = new SpyObject("Thing");
  EXPECT_TRUE(holds(scene().activeObjects(), p_o));
  EXPECT_TRUE(holds(scene().solidObjects(), p_o));
  EXPECT_TRUE(holds(scene().visibleObjects(2), p_o));
  EXPECT_TRUE(holds(scene().objectsOfType("Thing"), p_o));
  EXPECT_FALSE(holds(scene().inactiveObjects(), p_o));
}

TEST_F(Scene, InactiveObjectLeavesAllButTheInactiveList) {
  auto* p_o = new SpyObject("Thing");
  ASSERT_EQ(0, p_o->setActive(false));
  EXPECT_TRUE(holds(scene().inactiveObjects(), p_o));
  EXPECT_FALSE(holds(scene().activeObjects(), p_o));
  EXPECT_FALSE(holds(scene().solidObjects(), p_o));
  EXPECT_FALSE(holds(scene().visibleObjects(2), p_o));
  EXPECT_FALSE(holds(scene().objectsOfType("Thing"), p_o));
  // Changes while inactive are read afresh on the way back.
  p_o->setAltitude(3);
  p_o->setSolidness(ot::SPECTRAL);
  auto* p_later = new SpyObject("Thing");
  ASSERT_EQ(0, p_o->setActive(true));
  EXPECT_TRUE(holds(scene().visibleObjects(3), p_o));
  EXPECT_FALSE(holds(scene().solidObjects(), p_o));
  EXPECT_EQ(p_o, last(scene().activeObjects())) << "back at the end, behind " << p_later->getId();
  EXPECT_EQ(p_o, last(scene().objectsOfType("Thing")));
}

TEST_F(Scene, AltitudeMovesBetweenLists) {
  auto* p_o = new SpyObject;
  EXPECT_EQ(0, p_o->setAltitude(4));
  EXPECT_TRUE(holds(scene().visibleObjects(4), p_o));
  EXPECT_FALSE(holds(scene().visibleObjects(2), p_o));
  EXPECT_EQ(-1, p_o->setAltitude(5));
  EXPECT_EQ(4, p_o->getAltitude());
  EXPECT_EQ(0, scene().visibleObjects(5).getCount());
  EXPECT_EQ(0, scene().visibleObjects(-1).getCount());
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "Object::setAltitude(): Altitude 5 not in range [0,4].  Ignored."));
  EXPECT_TRUE(logHas(log, "SceneGraph::visibleObjects(): Warning! altitude 5 not in [0,4]."));
  EXPECT_TRUE(logHas(log, "SceneGraph::visibleObjects(): Warning! altitude -1 not in [0,4]."));
}

TEST_F(Scene, InvisibleObjectIsNotDrawnButStaysActive) {
  auto* p_o = new SpyObject;
  EXPECT_EQ(0, p_o->setVisible(false));
  EXPECT_FALSE(holds(scene().visibleObjects(2), p_o));
  EXPECT_TRUE(holds(scene().activeObjects(), p_o));
  EXPECT_EQ(0, p_o->setVisible(true));
  EXPECT_TRUE(holds(scene().visibleObjects(2), p_o));
}

TEST_F(Scene, HardToSoftTouchesNothingButSpectralLeavesTheSolidWorld) {
  auto* p_o = new SpyObject;
  auto* p_later = new SpyObject;
  EXPECT_EQ(0, p_o->setSolidness(ot::SOFT));
  EXPECT_EQ(p_later, last(scene().solidObjects())) << "no re-insertion for hard to soft";
  EXPECT_EQ(0, p_o->setSolidness(ot::SPECTRAL));
  EXPECT_FALSE(holds(scene().solidObjects(), p_o));
  EXPECT_EQ(0, p_o->setSolidness(ot::HARD));
  EXPECT_EQ(p_o, last(scene().solidObjects()));
  EXPECT_EQ(-1, p_o->setSolidness(static_cast<ot::Solidness>(7)));
  EXPECT_TRUE(
      logHas(logMessages(), "Object::setSolidness(): Solidness 7 not one of HARD, SOFT or SPECTRAL."));
}

TEST_F(Scene, TypeChangeMovesBetweenEntriesWhichAreNeverErased) {
  auto* p_o = new SpyObject("Old");
  p_o->setType("New");
  EXPECT_TRUE(holds(scene().objectsOfType("New"), p_o));
  EXPECT_EQ(0, scene().objectsOfType("Old").getCount());
  EXPECT_EQ(0, scene().objectsOfType("Nobody").getCount());
}

TEST_F(Scene, SetBoxMovesTheObjectToTheEndOfItsLists) {
  auto* p_o = new SpyObject;
  auto* p_other = new SpyObject;
  p_o->setBox(ot::Box(Vector(-1, -1), 2, 2));
  EXPECT_EQ(p_o, last(scene().activeObjects()));
  EXPECT_EQ(p_o, last(scene().solidObjects()));
  EXPECT_EQ(p_o, last(scene().visibleObjects(2)));
  (void)p_other;
}

TEST_F(Scene, TypeChangeOfAnInactiveObjectFailsLoudlyOnlyWhileTheGameRuns) {
  auto* p_o = new SpyObject("Sleeper");
  p_o->setActive(false);
  p_o->setType("Awake");
  EXPECT_EQ("Awake", p_o->getType());
  EXPECT_TRUE(logHas(logMessages(), "SceneGraph::updateType(): Error! Unable to remove Object (" +
                                        std::to_string(p_o->getId()) + ") type Sleeper"));
  ot::GameManager::getInstance().setGameOver(true);
  EXPECT_EQ(0, scene().updateType(p_o, "Again"));
  ot::GameManager::getInstance().setGameOver(false);
}

TEST_F(Scene, RemovingAnUnknownObjectLogsWithItsPointer) {
  auto* p_o = new SpyObject;
  ot::WorldManager::getInstance().setBoundary(ot::Box(Vector(0, 0), 50, 20));
  // The boundary change emptied the type map, so removal from it fails.
  char expected[160];
  snprintf(expected, sizeof(expected),
           "SceneGraph::removeObject(): Error removing Object (id %d)! Pointer is %p.", p_o->getId(),
           static_cast<void*>(p_o));
  EXPECT_EQ(-1, scene().removeObject(p_o));
  EXPECT_TRUE(logHas(logMessages(), expected));
  scene().insertObject(p_o);  // back, so that its deletion is clean
}
