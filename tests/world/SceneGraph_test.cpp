#include "engine/world/SceneGraph.h"

#include "engine/core/GameManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/SpyObject.h"

using namespace ot;
using namespace ot_test;

namespace {

class SceneGraphTest : public HeadlessEngine {
 protected:
  static SceneGraph& scene() { return WorldManager::getInstance().getSceneGraph(); }
  static bool holds(ObjectList list, Object* p_o) { return list.remove(p_o) == 0; }
  static Object* last(const ObjectList& list) { return list[list.getCount() - 1]; }
  // The lists holding an object in cell (0,0): Active, Solid, Visible at 2, Type, Inactive, Grid.
  static std::string where(Object* p_o) {
    const bool in[] = {
        holds(scene().activeObjects(), p_o),   holds(scene().solidObjects(), p_o),
        holds(scene().visibleObjects(2), p_o), holds(scene().objectsOfType(p_o->getType()), p_o),
        holds(scene().inactiveObjects(), p_o), holds(scene().getGrid()->getObjects({0, 0}), p_o)};
    std::string lists;
    for (int i = 0; i < 6; i++) lists += in[i] ? "ASVTIG"[i] : '-';
    return lists;
  }
};

}  // namespace

TEST_F(SceneGraphTest, InactiveObjectIsOnlyInTheInactiveList) {
  auto* p_o = new SpyObject("Thing");
  EXPECT_EQ("ASVT-G", where(p_o));
  ASSERT_EQ(0, p_o->setActive(false));
  p_o->setBox(Box(Vector(-0.5f, -0.5f), 1, 1));  // out and in again while inactive
  EXPECT_EQ("----I-", where(p_o));
  EXPECT_EQ(1, scene().inactiveObjects().getCount());
  p_o->setAltitude(3);  // read afresh on the way back
  (new SpyObject("Thing"))->setAltitude(3);
  ASSERT_EQ(0, p_o->setActive(true));
  for (const ObjectList& list : {scene().activeObjects(), scene().solidObjects(),
                                 scene().objectsOfType("Thing"), scene().visibleObjects(3)})
    EXPECT_EQ(p_o, last(list));
}

TEST_F(SceneGraphTest, ChangesMoveOnlyWhatTheyConcern) {
  auto* p_o = new SpyObject;
  auto* p_later = new SpyObject;
  p_o->setVisible(false);
  EXPECT_EQ("AS-T-G", where(p_o));
  p_o->setVisible(true);
  p_o->setSolidness(SOFT);
  EXPECT_EQ(p_later, last(scene().solidObjects()));
  p_o->setSolidness(SPECTRAL);
  EXPECT_EQ("A-VT--", where(p_o));
  p_o->setSolidness(HARD);
  EXPECT_EQ(p_o, last(scene().solidObjects()));
}

TEST_F(SceneGraphTest, AltitudeOutOfRangeIsRefused) {
  auto* p_o = new SpyObject;
  EXPECT_EQ(0, p_o->setAltitude(4));
  EXPECT_EQ(p_o, last(scene().visibleObjects(4)));
  EXPECT_EQ(-1, p_o->setAltitude(5));
  EXPECT_EQ(-1, scene().updateAltitude(p_o, 7));
  p_o->setActive(false);
  EXPECT_EQ(0, scene().updateAltitude(p_o, 9));
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "Object::setAltitude(): Altitude 5 not in range [0,4].  Ignored."));
  EXPECT_TRUE(logHas(log, "SceneGraph::updateAltitude(): New altitude 7 not in [0,4]!  No update."));
  EXPECT_FALSE(logHas(log, "SceneGraph::updateAltitude(): New altitude 9 not in [0,4]!  No update."));
}

TEST_F(SceneGraphTest, FailuresAreLoudOnlyWhileTheGameRuns) {
  auto* p_sleeper = new SpyObject("Sleeper");
  p_sleeper->setActive(false);
  p_sleeper->setType("Awake");  // not in the type map, yet stored
  auto* p_o = new SpyObject;
  ASSERT_EQ(0, scene().updateVisible(p_o, false));  // out of the list behind the object's back
  EXPECT_EQ(-1, p_o->setVisible(false));
  GameManager::getInstance().setGameOver(true);
  EXPECT_EQ(0, scene().updateType(p_sleeper, "Again"));
  EXPECT_EQ(0, p_o->setVisible(false));
  GameManager::getInstance().setGameOver(false);
  EXPECT_FALSE(p_o->isVisible());
  auto log = logMessages();
  EXPECT_EQ(1, logCount(log, "SceneGraph::updateType(): Error! Unable to remove Object (" +
                                 std::to_string(p_sleeper->getId()) + ") type Sleeper"));
  EXPECT_EQ(1, logCount(log, "SceneGraph::updateVisible(): unable to remove visible object (Spy)"));
}
