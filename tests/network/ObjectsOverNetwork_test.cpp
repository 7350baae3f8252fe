// Objects written into framed messages, carried by a real loopback
// connection and read back at the other end.

#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "engine/core/EventLabels.h"
#include "engine/network/DataEvents.h"
#include "engine/network/NetworkManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/ViewObject.h"
#include "engine/world/Object.h"
#include "tests/support/NetworkPeer.h"

using ot::Object;
using ot::Vector;
using namespace ot_test;

namespace {

ot::NetworkManager& network() { return ot::NetworkManager::getInstance(); }

std::string maskOf(const std::string& payload) { return payload.substr(0, 4); }

std::string maskBytes(unsigned int mask) { return std::string(reinterpret_cast<const char*>(&mask), 4); }

}  // namespace

class ObjectsOverNetwork : public NetworkEngine {
 protected:
  void SetUp() override {
    NetworkEngine::SetUp();
    std::tie(client, server) = connectToSelf();
    ASSERT_EQ(1, server);
    p_spy = new NetworkSpy;
  }

  // One payload framed, sent from the client end, and taken out of the server end's DATA event.
  std::string carryPayload(const std::string& payload) {
    const std::string block = frame(payload);
    size_t before = p_spy->events.size();
    EXPECT_EQ(0, network().send(block.data(), static_cast<int>(block.size()), client));
    EXPECT_TRUE(waitForBytes(server, static_cast<int>(block.size())));
    while (ot::genDataEvents(server) == 1) {
    }
    return p_spy->events.size() == before + 1 ? p_spy->events.back().message.substr(4) : std::string();
  }

  int client = -1, server = -1;
  NetworkSpy* p_spy = nullptr;
};

TEST_F(ObjectsOverNetwork, EachAttributeTravelsAloneUnderItsOwnBit) {
  ASSERT_EQ(0, ot::ResourceManager::getInstance().loadSprite(
                   std::string(getenv("OSTREL_SOURCE_DIR")) + "/sprites/examples/coin-robust.txt", "coin"));
  struct Row {
    const char* name;
    unsigned int bit;
    bool by_hand;  // sent with an explicit mask: these setters mark nothing
    std::function<void(Object*)> change;
    std::function<std::string(const Object*)> value;
  };
  const std::vector<Row> rows = {
      {"id", Object::ID, false, [](Object* o) { o->setId(4242); },
       [](const Object* o) { return std::to_string(o->getId()); }},
      {"active", Object::ACTIVE, false, [](Object* o) { o->setActive(false); },
       [](const Object* o) { return std::to_string(o->isActive()); }},
      {"visible", Object::VISIBLE, false, [](Object* o) { o->setVisible(false); },
       [](const Object* o) { return std::to_string(o->isVisible()); }},
      {"events", Object::EVENTS, false,
       [](Object* o) {
         o->registerInterest(ot::STEP_EVENT);
         o->registerInterest("courier-news");
       },
       [](const Object* o) { return std::to_string(o->getEventCount()); }},
      {"box", Object::BOX, false, [](Object* o) { o->setBox(ot::Box(Vector(-1, -2), 3, 4)); },
       [](const Object* o) { return o->getBox().toString(); }},
      {"position", Object::POSITION, false, [](Object* o) { o->setPosition(Vector(10.5f, 7.25f)); },
       [](const Object* o) { return o->getPosition().toString(); }},
      {"type", Object::TYPE, false, [](Object* o) { o->setType("Courier"); },
       [](const Object* o) { return o->getType(); }},
      {"animation", Object::ANIMATION, true,
       [](Object* o) {
         o->setSprite("coin");
         ot::Animation animation = o->getAnimation();
         animation.setIndex(2);
         o->setAnimation(animation, false);
       },
       [](const Object* o) { return o->getAnimation().toString(); }},
      {"altitude", Object::ALTITUDE, false, [](Object* o) { o->setAltitude(4); },
       [](const Object* o) { return std::to_string(o->getAltitude()); }},
      {"solidness", Object::SOLIDNESS, false, [](Object* o) { o->setSolidness(ot::SOFT); },
       [](const Object* o) { return std::to_string(o->getSolidness()); }},
      {"no soft", Object::NO_SOFT, false, [](Object* o) { o->setNoSoft(true); },
       [](const Object* o) { return std::to_string(o->getNoSoft()); }},
      {"speed", Object::SPEED, false, [](Object* o) { o->setSpeed(0.75f); },
       [](const Object* o) { return std::to_string(o->getSpeed()); }},
      {"direction", Object::DIRECTION, true, [](Object* o) { o->setDirection(Vector(0.6f, 0.8f)); },
       [](const Object* o) { return o->getDirection().toString(); }},
      {"acceleration", Object::ACCELERATION, false,
       [](Object* o) { o->setAcceleration(Vector(0.125f, -0.5f)); },
       [](const Object* o) { return o->getAcceleration().toString(); }},
      {"shape", Object::SHAPE, false,
       [](Object* o) {
         ot::Shape shape;
         shape.setType(ot::SHAPE_TRIANGLE);
         shape.setSize(6);
         shape.setColor(ot::MAGENTA);
         shape.setOpacity(99);
         o->setShape(shape);
       },
       [](const Object* o) { return o->getShape().toString(); }},
      {"path", Object::PATH, false,
       [](Object* o) {
         ot::Path path;
         path.setPoints({Vector(1, 1), Vector(2, 2), Vector(3, 2)});
         o->setPath(path);
       },
       [](const Object* o) { return o->getPath().toString(); }},
      {"follow path", Object::FOLLOW_PATH, false, [](Object* o) { o->setFollowPath(true); },
       [](const Object* o) { return std::to_string(o->getFollowPath()); }},
      {"avoid collisions", Object::AVOID_COLLISIONS, false, [](Object* o) { o->setAvoidCollisions(true); },
       [](const Object* o) { return std::to_string(o->getAvoidCollisions()); }},
  };
  unsigned int covered = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    covered |= row.bit;
    auto* p_writer = new Object;
    auto* p_reader = new Object;
    p_reader->registerInterest("reader-only");
    std::stringstream discard, out;
    p_writer->serialize(&discard);  // everything counts as sent
    const std::string before = row.value(p_reader);
    row.change(p_writer);
    ASSERT_NE(before, row.value(p_writer)) << "the change must show";
    ASSERT_EQ(0, p_writer->serialize(&out, row.by_hand ? row.bit : 0));
    std::string payload = carryPayload(out.str());
    ASSERT_EQ(maskBytes(row.bit), maskOf(payload));
    std::stringstream in(payload);
    ASSERT_EQ(0, p_reader->deserialize(&in));
    EXPECT_EQ(row.value(p_writer), row.value(p_reader));
    // The sender's interests replace the reader's; no other field touches them.
    EXPECT_EQ(row.bit == Object::EVENTS ? -1 : 0, p_reader->unregisterInterest("reader-only"));
  }
  EXPECT_EQ(Object::ALL_OBJECT_ATTRIBUTES, covered);
}

TEST_F(ObjectsOverNetwork, BadPayloadsDoNoHarm) {
  auto* p_writer = new ot::ViewObject;
  p_writer->setViewString("Score");
  p_writer->setType("Courier");
  p_writer->registerInterest("courier-news");
  std::stringstream out;
  p_writer->serialize(&out);
  const std::string whole = out.str();
  for (size_t cut : {size_t{1}, size_t{3}, size_t{30}, whole.size() / 2, whole.size() - 1}) {
    auto* p_reader = new ot::ViewObject;
    std::stringstream in(carryPayload(whole.substr(0, cut)));
    EXPECT_NE(0, p_reader->deserialize(&in)) << "cut at " << cut;
  }
  // Garbage, seeded: whatever it makes of the reader, it must neither crash nor leak.
  srand(7);
  for (int i = 0; i < 60; i++) {
    std::string garbage(static_cast<size_t>(rand() % 120 + 1), '\0');
    for (char& c : garbage) c = static_cast<char>(rand() % 256);
    Object* p_reader = i % 2 ? new Object : new ot::ViewObject;
    std::stringstream in(carryPayload(garbage));
    int result = p_reader->deserialize(&in);
    EXPECT_TRUE(result == 0 || result == -1) << result;
  }
  EXPECT_EQ(2, network().getNumConnections());
}
