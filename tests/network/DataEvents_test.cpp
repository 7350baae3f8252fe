#include "engine/network/DataEvents.h"

#include <climits>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "engine/core/LogManager.h"
#include "engine/network/NetworkManager.h"
#include "engine/platform/Platform.h"
#include "tests/support/NetworkPeer.h"

using ot::genDataEvents;
using namespace ot_test;

namespace {

ot::NetworkManager& network() { return ot::NetworkManager::getInstance(); }

// A header claiming size bytes, whatever follows it.
std::string header(std::int32_t size) {
  std::string bytes(4, '\0');
  std::memcpy(&bytes[0], &size, 4);
  return bytes;
}

}  // namespace

// The engine's server end of a plain peer is socket 0.
class DataEvents : public NetworkEngine {
 protected:
  void SetUp() override {
    NetworkEngine::SetUp();
    p_peer.reset(new PlainPeer(port()));
    ASSERT_EQ(0, acceptWaiting());
    p_spy = new NetworkSpy;
  }
  void TearDown() override {
    p_peer.reset();
    NetworkEngine::TearDown();
  }
  std::unique_ptr<PlainPeer> p_peer;
  NetworkSpy* p_spy = nullptr;
};

struct Split {
  const char* name;
  std::string first, rest;
};

class DataEventsPartial : public DataEvents, public ::testing::WithParamInterface<Split> {};

TEST_P(DataEventsPartial, StayUnconsumedUntilTheirLastByte) {
  const Split& split = GetParam();
  p_peer->send(split.first);
  ASSERT_TRUE(waitForBytes(0, static_cast<int>(split.first.size())));
  EXPECT_EQ(0, genDataEvents(0));
  EXPECT_EQ(0, genDataEvents(0)) << "and the next call starts over";
  EXPECT_EQ(static_cast<int>(split.first.size()), network().isData(0));
  EXPECT_TRUE(p_spy->events.empty());

  p_peer->send(split.rest);
  const std::string whole = split.first + split.rest;
  ASSERT_TRUE(waitForBytes(0, static_cast<int>(whole.size())));
  EXPECT_EQ(1, genDataEvents(0));
  ASSERT_EQ(1u, p_spy->events.size());
  const NetworkRecord& event = p_spy->events[0];
  EXPECT_EQ(
      std::make_tuple(ot::DATA, 0, static_cast<int>(whole.size()), whole),  // the block, header included
      std::make_tuple(event.label, event.socket_index, event.bytes, event.message));
  EXPECT_EQ(0, network().isData(0));
}

const std::string HUNDRED = frame(std::string(96, 'h'));
INSTANTIATE_TEST_SUITE_P(
    Splits, DataEventsPartial,
    ::testing::Values(Split{"ThreeBytes", header(10).substr(0, 3), header(10).substr(3) + "abcdef"},
                      Split{"HeaderOnly", header(8), "tail"},
                      Split{"NinetyNineOfAHundred", HUNDRED.substr(0, 99), HUNDRED.substr(99)}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(DataEvents, TwoMessagesInOneReadComeOutOneACall) {
  const std::string first = frame("first"), second = frame("second!");
  p_peer->send(first + second);
  ASSERT_TRUE(waitForBytes(0, static_cast<int>(first.size() + second.size())));
  EXPECT_EQ(1, genDataEvents(0));
  EXPECT_EQ(1, genDataEvents(0));
  EXPECT_EQ(0, genDataEvents(0));
  ASSERT_EQ(2u, p_spy->events.size());
  EXPECT_EQ(first, p_spy->events[0].message);
  EXPECT_EQ(second, p_spy->events[1].message);
}

TEST_F(DataEvents, AMessageNobodyWantsStillCountsAsDelivered) {
  p_spy->unregisterInterest(ot::NETWORK_EVENT);
  ot::LogManager::getInstance().setLogLevel(20);
  p_peer->send(frame("lonely"));
  ASSERT_TRUE(waitForBytes(0, 10));
  EXPECT_EQ(1, genDataEvents(0));
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "ot::genDataEvents(): socket 0, connected true, bytes 10"));
  EXPECT_TRUE(logHas(log, "ot::genDataEvents(): have 10 of 10 bytes."));
  EXPECT_TRUE(logHas(log, "ot::genDataEvents(): have full message (10 bytes)."));
  EXPECT_TRUE(logHas(log, "ot::genDataEvents(): sent to 0 objects."));
}

TEST_F(DataEvents, NoSocketNoMessage) {
  EXPECT_EQ(0, genDataEvents(1));
  EXPECT_EQ(0, genDataEvents(-1));
  EXPECT_EQ(0, genDataEvents(-3));
  EXPECT_EQ(1, network().getNumConnections());
}

class DataEventsShortLength : public DataEvents, public ::testing::WithParamInterface<std::int32_t> {};

TEST_P(DataEventsShortLength, GiveUpTheConnectionWhoseStreamCannotBeFollowed) {
  p_peer->send(header(GetParam()) + "more bytes");
  ASSERT_TRUE(waitForBytes(0, 14));
  EXPECT_EQ(-1, genDataEvents(0));
  EXPECT_EQ("ot::genDataEvents(): Error! Message size " + std::to_string(GetParam()) +
                " is less than its header; closing socket 0.",
            logMessages().back());
  EXPECT_EQ((std::vector<ot::NetworkEventLabel>{ot::CLOSE}), p_spy->labels());
  EXPECT_EQ(0, network().getNumConnections());
  EXPECT_TRUE(p_peer->seesClose());
}

INSTANTIATE_TEST_SUITE_P(Lengths, DataEventsShortLength, ::testing::Values(0, 3, -5, INT_MIN));

struct Leaving {
  const char* name;
  std::string sent;     // before the peer closes
  int whole_messages;   // among them
  std::string warning;  // logged when the rest never comes; empty for a clean end
};

class DataEventsPeerLeaving : public DataEvents, public ::testing::WithParamInterface<Leaving> {};

TEST_P(DataEventsPeerLeaving, ClosesInsteadOfWaitingForEver) {
  const Leaving& leaving = GetParam();
  p_peer->send(leaving.sent);
  ASSERT_TRUE(waitForBytes(0, static_cast<int>(leaving.sent.size())));
  p_peer->close();
  ASSERT_TRUE(waitForPeerClose(0));
  for (int i = 0; i < leaving.whole_messages; i++) EXPECT_EQ(1, genDataEvents(0));
  EXPECT_EQ(0, genDataEvents(0));
  EXPECT_EQ(0, network().getNumConnections());
  std::vector<ot::NetworkEventLabel> expected(static_cast<size_t>(leaving.whole_messages), ot::DATA);
  expected.push_back(ot::CLOSE);
  EXPECT_EQ(expected, p_spy->labels());
  auto log = logMessages();
  if (!leaving.warning.empty()) {
    EXPECT_TRUE(logHas(log, leaving.warning));
  }
  for (const std::string& line : log) {
    if (line != leaving.warning) {
      EXPECT_EQ(std::string::npos, line.find("Warning")) << line;
    }
  }
  EXPECT_EQ(0, genDataEvents(0)) << "the socket is gone";
}

const std::string MIDDLE =
    "ot::genDataEvents(): Warning! Socket 0 closed by its peer in the middle of a message";
INSTANTIATE_TEST_SUITE_P(
    Ends, DataEventsPeerLeaving,
    ::testing::Values(Leaving{"Cleanly", "", 0, ""}, Leaving{"AfterAWholeMessage", frame("bye"), 1, ""},
                      Leaving{"InTheHeader", header(10).substr(0, 3), 0, MIDDLE + " (3 bytes dropped)."},
                      Leaving{"HalfWay", HUNDRED.substr(0, 50), 0, MIDDLE + " (50 bytes dropped)."},
                      Leaving{"UnderAnOverlongLength", header(INT_MAX) + "0123456789", 0,
                              MIDDLE + " (14 bytes dropped)."}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(DataEvents, AMessageLargerThanTheSystemsBufferStillComesWhole) {
  // Left in the system until whole, it would fill the system's buffer and
  // stall the connection for good.
  const std::string big = frame(std::string(4 << 20, 'b'));
  size_t sent = 0;
  int result = 0;
  for (int idle = 0; idle < 5000 && result != 1;) {
    size_t now = sent < big.size() ? p_peer->sendWithoutWaiting(big.data() + sent, big.size() - sent) : 0;
    sent += now;
    result = genDataEvents(0);
    if (now == 0 && result == 0) {
      idle++;
      ot::platform::sleepMilliseconds(1);
    }
  }
  EXPECT_EQ(1, result);
  ASSERT_EQ(1u, p_spy->events.size());
  EXPECT_TRUE(p_spy->events[0].message == big);
}

TEST_F(DataEvents, AnOverlongLengthWaitsWithoutConsumingWhileThePeerStays) {
  p_peer->send(header(INT_MAX) + "0123456789");
  ASSERT_TRUE(waitForBytes(0, 14));
  for (int i = 0; i < 3; i++) EXPECT_EQ(0, genDataEvents(0));
  EXPECT_EQ(14, network().isData(0));
  EXPECT_EQ(1, network().getNumConnections());
}
