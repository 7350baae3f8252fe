#include "engine/network/NetworkManager.h"

#include <cstring>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "engine/core/Config.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/core/LogManager.h"
#include "engine/platform/Platform.h"
#include "engine/platform/Socket.h"
#include "tests/support/FakeClock.h"
#include "tests/support/NetworkPeer.h"
#include "tests/support/SpyObject.h"

using ot::NetworkManager;
using namespace ot_test;

namespace {

NetworkManager& network() { return NetworkManager::getInstance(); }

void setLogLevel(int level) { ot::LogManager::getInstance().setLogLevel(level); }

// A socket bound to a loopback port of the system's choice; listening or not.
struct BoundPort {
  explicit BoundPort(bool listening) {
    sock = ot::platform::openStreamSocket();
    ot::platform::bindAnyAddress(sock, 0);
    if (listening) ot::platform::listenSocket(sock, 1);
  }
  ~BoundPort() { ot::platform::closeSocket(sock); }
  std::string port() const { return std::to_string(ot::platform::localPort(sock)); }
  int sock;
};

}  // namespace

class NetworkManagerConnect : public NetworkEngine {};

TEST_F(NetworkManagerConnect, ConnectionsRaiseEventsWithTheNewIndex) {
  setLogLevel(1);
  auto* p_spy = new NetworkSpy;
  auto [client, server] = connectToSelf();
  EXPECT_EQ(std::make_pair(0, 1), std::make_pair(client, server));
  ASSERT_EQ((std::vector<ot::NetworkEventLabel>{ot::CONNECT, ot::ACCEPT}), p_spy->labels());
  EXPECT_EQ(std::make_tuple(0, 1, 0), std::make_tuple(p_spy->events[0].socket_index,
                                                      p_spy->events[1].socket_index, p_spy->events[1].bytes));
  EXPECT_EQ(-1, network().accept()) << "nobody else is waiting";
  EXPECT_EQ(2, network().getNumConnections());
  EXPECT_NE(network().getSocket(0), network().getSocket(1));
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "NetworkManager::connect(): Connecting to 127.0.0.1, port " + port() + "."));
  EXPECT_TRUE(logHas(log, "NetworkManager::connect(): Connection established."));
  EXPECT_TRUE(logHas(log, "NetworkManager::accept(): New connection, socket 1."));
}

TEST_F(NetworkManagerConnect, AcceptStopsAtTheLimit) {
  network().setMaxConnections(1);
  PlainPeer first(port()), second(port());
  ASSERT_TRUE(first.isOpen() && second.isOpen());
  ASSERT_EQ(0, acceptWaiting());
  setLogLevel(20);
  EXPECT_EQ(-1, network().accept());
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "NetworkManager::accept(): Won't check for new connetions since at max."));
  EXPECT_TRUE(logHas(log, "\tUse NM.setMaxConnections() to change max."));
  network().setMaxConnections(0);
  EXPECT_EQ(-1, network().accept());
  EXPECT_EQ(1, network().getNumConnections()) << "a lower limit closes nothing";
  network().setMaxConnections(3);
  EXPECT_EQ(1, acceptWaiting()) << "the second peer waited in the backlog";
}

TEST_F(NetworkManagerConnect, FailuresToListenOrConnectAreLoggedWithTheSystemsText) {
  const int old_port = network().getServerPort();
  EXPECT_EQ(0, network().setServer(true, "0")) << "already listening";
  EXPECT_EQ(old_port, network().getServerPort());

  BoundPort busy(true), silent(false);
  ASSERT_EQ(0, network().setServer(false));
  EXPECT_EQ(-2, network().accept());
  EXPECT_EQ(-1, network().setServer(true, busy.port()));
  EXPECT_FALSE(network().isServer());
  EXPECT_EQ(-1, network().connect("127.0.0.1", silent.port()));
  EXPECT_EQ(-1, network().connect("127.0.0.1", "no-such-service"));
  EXPECT_EQ(0, network().getNumConnections());
  auto log = logMessages();
  for (const char* line :
       {"NetworkManager::accept(): Error! Not setup as server.",
        "NetworkManager::setServer(): Error! bind() returned:", "\t98 - Address already in use",
        "NetworkManager::connect(): Error! connect() returned:", "\t111 - Connection refused",
        "NetworkManager::connect(): Error! getaddrinfo() returned:"})
    EXPECT_TRUE(logHas(log, line)) << line;

  setLogLevel(1);
  ot::Config::getInstance().setNetworking(false);
  EXPECT_EQ(-1, network().setServer(true, "0"));
  EXPECT_EQ(-1, network().connect("127.0.0.1", busy.port()));
  ot::Config::getInstance().setNetworking(true);
  log = logMessages();
  EXPECT_TRUE(logHas(
      log,
      "NetworkManager::setServer(): Error! Networking is not enabled in the Ostrel configuration file."));
  EXPECT_TRUE(logHas(
      log, "NetworkManager::connect(): Error! Networking is not enabled in the Ostrel configuration file."));
}

TEST_F(NetworkManagerConnect, ShutDownClosesEverySocket) {
  PlainPeer peer(port());
  ASSERT_EQ(0, acceptWaiting());
  network().shutDown();
  EXPECT_EQ(std::make_pair(false, 0), std::make_pair(network().isServer(), network().getNumConnections()));
  EXPECT_TRUE(peer.seesClose());
  EXPECT_EQ(0, network().startUp()) << "and a later start begins afresh";
}

using NetworkManagerDeathTest = NetworkManagerConnect;

TEST_F(NetworkManagerDeathTest, CleanUpEndsTheProcessWithTheStatus) {
  setLogLevel(1);
  EXPECT_EXIT(ot::cleanUp(3), ::testing::ExitedWithCode(3), "");
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "NetworkManager cleanUp(): Signal is 3. Shutting down."));
  EXPECT_TRUE(logHas(log, "** Game engine stopped **"));
}

class NetworkManagerTransfer : public NetworkEngine {
 protected:
  void SetUp() override {
    NetworkEngine::SetUp();
    std::tie(client, server) = connectToSelf();
    ASSERT_EQ(1, server);
  }
  int client = -1, server = -1;
};

TEST_F(NetworkManagerTransfer, ReceivePeeksOrConsumes) {
  EXPECT_EQ(0, network().send("hello", 5, client));
  ASSERT_TRUE(waitForBytes(server, 5));
  char buffer[8] = {};
  EXPECT_EQ(5, network().receive(buffer, 5, true, server));
  EXPECT_EQ(5, network().isData(server)) << "a peek leaves the bytes";
  EXPECT_EQ(5, network().receive(buffer, 5, false, server));
  EXPECT_EQ("hello", std::string(buffer));
  EXPECT_EQ(0, network().isData(server));

  EXPECT_EQ(0, network().send("ab", 2, -1)) << "-1 sends on every socket";
  ASSERT_TRUE(waitForBytes(server, 2));
  ASSERT_TRUE(waitForBytes(client, 2));
  EXPECT_EQ(0, network().receive(buffer, 0, false, server)) << "asking for nothing closes nothing";
  EXPECT_EQ(2, network().getNumConnections());
}

TEST_F(NetworkManagerTransfer, OperationsOnOneSocketRefuseAnIndexThatIsNotThere) {
  char buffer[4] = {};
  struct Case {
    const char* what;
    std::function<int(int)> call;
    std::string message;  // with %d for the index
  };
  const std::vector<Case> cases = {
      {"sendNow", [&](int s) { return network().sendNow(buffer, 4, s); },
       "NetworkManager::send(): Error! Socket %d not connected. Unable to send."},
      {"receive", [&](int s) { return network().receive(buffer, 4, false, s); },
       "NetworkManager::receive(): Error! Socket %d not connected. Unable to receive."},
      {"isData", [&](int s) { return network().isData(s); },
       "NetworkManager::isData(): Warning! Sock %d not connected."},
      {"send", [&](int s) { return network().send(buffer, 4, s); },
       "NetworkManager::isData(): Warning! Sock %d not connected."},
      {"setDelay", [&](int s) { return network().setDelay(2, s); },
       "NetworkManager::setDelay(): Warning! Socket %d not connected."},
      {"close", [&](int s) { return network().close(s); },
       "NetworkManager::close(): Error! Socket %d not connected."},
  };
  setLogLevel(5);
  for (const Case& c : cases) {
    for (int sock : {2, -2, -3}) {
      EXPECT_EQ(-1, c.call(sock)) << c.what << " " << sock;
      std::string expected = c.message;
      expected.replace(expected.find("%d"), 2, std::to_string(sock));
      EXPECT_EQ(expected, logMessages().back()) << c.what << " " << sock;
    }
  }
  for (const Case& c : {cases[0], cases[1], cases[2]})
    EXPECT_EQ(-1, c.call(-1)) << c.what << " takes one socket";
  EXPECT_EQ(-1, network().send(nullptr, 4, 0));
  EXPECT_EQ(-1, network().sendNow(buffer, -1, 0));
  EXPECT_EQ("NetworkManager::send(): Error! No buffer of -1 bytes to send.", logMessages().back());
  EXPECT_EQ(-1, network().receive(nullptr, 4, false, 0));
  EXPECT_EQ("NetworkManager::receive(): Error! No buffer of 4 bytes to receive into.", logMessages().back());
  EXPECT_EQ(2, network().getNumConnections());

  EXPECT_TRUE(network().isConnected(-2));
  EXPECT_FALSE(network().isConnected(2));
  EXPECT_EQ(-1, network().getSocket(5));
  EXPECT_EQ("NetworkManager::getSocket(): Error! No socket at index 5 (min 0, max 2).", logMessages().back());
  auto before = logMessages().size();
  EXPECT_FALSE(network().isConnected(-3));
  EXPECT_EQ(before + 1, logMessages().size());
  EXPECT_EQ("NetworkManager::isConnected(): Warning! Sock less than -1.", logMessages().back());
}

TEST_F(NetworkManagerTransfer, DelayedSendsLeaveInTheFrameOfTheirStepAsTheCopiesTakenAtSending) {
  ASSERT_EQ(0, network().setDelay(3, client));
  std::vector<int> waiting;  // bytes at the server end seen by each step's handler
  std::string arrived;
  FakeClock clock;
  auto* p_spy = new SpyObject;
  p_spy->registerInterest(ot::STEP_EVENT);
  p_spy->on_event = [&](SpyObject& self, const ot::Event*) {
    int step = self.steps.back();
    if (step == 2) {
      char buffer[4] = "abc";
      EXPECT_EQ(0, network().send(buffer, 3, client));
      std::strcpy(buffer, "xyz");  // the queued copy keeps abc
      EXPECT_EQ(0, network().send("d", 1, client));
    }
    if (step >= 2 && step <= 5) waiting.push_back(network().isData(server));
    if (step == 6) {
      EXPECT_TRUE(waitForBytes(server, 4));
      char got[5] = {};
      network().receive(got, 4, false, server);
      arrived = got;
      ot::GameManager::getInstance().setGameOver(true);
    }
  };
  ot::GameManager::getInstance().run();
  // Sent at step 2 with a delay of 3: out in frame 5, after that frame's step event.
  EXPECT_EQ((std::vector<int>{0, 0, 0, 0}), waiting);
  EXPECT_EQ("abcd", arrived);
}

TEST_F(NetworkManagerTransfer, ClosingShiftsLaterIndicesDown) {
  PlainPeer third(port());
  ASSERT_EQ(2, acceptWaiting());
  const int old_second = network().getSocket(1), old_third = network().getSocket(2);
  network().setDelay(5, 2);
  network().send("late", 4, 2);  // dropped with its socket below
  auto* p_spy = new NetworkSpy;

  EXPECT_EQ(0, network().close(0));
  ASSERT_EQ(1u, p_spy->events.size());
  EXPECT_EQ(
      std::make_tuple(ot::CLOSE, 0, 3),  // raised while the entry is there
      std::make_tuple(p_spy->events[0].label, p_spy->events[0].socket_index, p_spy->events[0].connections));
  EXPECT_EQ(std::make_tuple(2, old_second, old_third),
            std::make_tuple(network().getNumConnections(), network().getSocket(0), network().getSocket(1)));
  EXPECT_EQ(0, network().isData(0)) << "the server end, whose client end closed, is still there";

  EXPECT_EQ(0, network().close(-1));
  ASSERT_EQ(3u, p_spy->events.size());
  EXPECT_EQ(std::make_tuple(0, 1, 2, 0),
            std::make_tuple(p_spy->events[1].socket_index, p_spy->events[2].socket_index,
                            p_spy->events[2].connections, network().getNumConnections()));
  EXPECT_TRUE(third.seesClose());
  EXPECT_EQ(0, network().close(-1)) << "nothing to close";
  EXPECT_EQ(3u, p_spy->events.size());
}

TEST_F(NetworkManagerTransfer, ACloseHandlerMayCloseOrSend) {
  auto* p_spy = new SpyObject;
  p_spy->registerInterest(ot::NETWORK_EVENT);
  p_spy->on_event = [&](SpyObject&, const ot::Event*) {
    network().close(-1);
    network().send("x", 1, -1);
  };
  EXPECT_EQ(0, network().close(0));
  EXPECT_EQ(2, p_spy->count(ot::NETWORK_EVENT)) << "each socket closed once";
  EXPECT_EQ(0, network().getNumConnections());
}

TEST_F(NetworkManagerTransfer, APeerThatLeftRaisesNoSignal) {
  setLogLevel(1);
  auto* p_spy = new NetworkSpy;
  ASSERT_EQ(0, network().close(client));  // the server end is now index 0
  char buffer[4];
  EXPECT_EQ(0, network().receive(buffer, 4, false, 0));
  EXPECT_EQ((std::vector<ot::NetworkEventLabel>{ot::CLOSE, ot::CLOSE}), p_spy->labels());
  EXPECT_TRUE(logHas(logMessages(), "NetworkManager::receive(): socket is closed"));

  PlainPeer peer(port());
  ASSERT_EQ(0, acceptWaiting());
  peer.close();
  // The first sends may still go; the peer's reset turns a later one into a broken pipe.
  for (int tries = 0; tries < 5000 && network().getNumConnections() > 0; tries++) {
    network().sendNow("ping", 4, 0);
    ot::platform::sleepMilliseconds(1);
  }
  EXPECT_EQ(0, network().getNumConnections());
  auto log = logMessages();
  EXPECT_TRUE(logHas(log, "NetworkManager::send(): Error! Return is -1."));
  EXPECT_TRUE(logHas(log, "\t32 - Broken pipe"));
  EXPECT_TRUE(logHas(log, "\tsocket is closed"));
}

TEST_F(NetworkManagerTransfer, TheFrameServesTheNetwork) {
  auto* p_spy = new NetworkSpy;
  PlainPeer peer(port());
  FakeClock clock;
  auto* p_stepper = new SpyObject;
  p_stepper->registerInterest(ot::STEP_EVENT);
  p_stepper->on_event = [&](SpyObject& self, const ot::Event*) {
    int step = self.steps.back();
    if (step == 0) {
      network().setDelay(1, client);
      network().send("q", 1, client);
    }
    // Frames go on until the peer's connection has reached the listener.
    if ((step >= 2 && !p_spy->events.empty()) || step > 5000)
      ot::GameManager::getInstance().setGameOver(true);
    ot::platform::sleepMilliseconds(1);
  };
  ot::GameManager::getInstance().run();
  ASSERT_EQ(1u, p_spy->events.size());
  EXPECT_EQ(std::make_pair(ot::ACCEPT, 2),
            std::make_pair(p_spy->events[0].label, p_spy->events[0].socket_index));
  EXPECT_TRUE(waitForBytes(server, 1)) << "the delayed byte went in frame 1";
}
