// Framed messages through a loopback connection between two processes: this
// one sends through NetworkManager, a second copy of this program receives
// them with genDataEvents, as a game would. Each iteration is a batch of
// messages and one acknowledgement, so that what is counted has arrived.
// Also the cost of writing and reading one object's wire form, whole and as
// the usual update of its position alone.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "bench/support/RatioReporter.h"
#include "engine/core/Config.h"
#include "engine/core/EventLabels.h"
#include "engine/core/GameManager.h"
#include "engine/network/DataEvents.h"
#include "engine/network/EventNetwork.h"
#include "engine/network/NetworkManager.h"
#include "engine/platform/Platform.h"
#include "engine/platform/Process.h"
#include "engine/platform/Socket.h"
#include "engine/world/Object.h"
#include "engine/world/WorldManager.h"

namespace {

constexpr int BATCH = 1000;
constexpr char DATA_MARK = 'D', ACK_MARK = 'A';

ot::NetworkManager& network() { return ot::NetworkManager::getInstance(); }

std::string block(int payload_bytes, char mark) {
  std::int32_t size = payload_bytes + 4;
  std::string bytes(static_cast<size_t>(size), mark);
  std::memcpy(&bytes[0], &size, 4);
  return bytes;
}

// Counts data events; the receiving side answers an acknowledgement request.
class Counter : public ot::Object {
 public:
  explicit Counter(bool answer) : m_answer(answer) {
    setSolidness(ot::SPECTRAL);
    registerInterest(ot::NETWORK_EVENT);
  }
  int eventHandler(const ot::Event* p_e) override {
    auto* p_net = dynamic_cast<const ot::EventNetwork*>(p_e);
    if (!p_net || p_net->getLabel() != ot::DATA) return 0;
    messages++;
    if (m_answer && p_net->getBytes() > 4 && static_cast<const char*>(p_net->getMessage())[4] == ACK_MARK) {
      static const std::string ack = block(1, ACK_MARK);
      network().send(ack.data(), static_cast<int>(ack.size()), p_net->getSocketIndex());
    }
    return 1;
  }
  long messages = 0;

 private:
  bool m_answer;
};

// Pumps a socket until one more message came; false if nothing came for 10 s.
bool pumpOne(int sock, Counter* p_counter) {
  long before = p_counter->messages;
  while (p_counter->messages == before) {
    if (ot::genDataEvents(sock) == 1) continue;
    if (network().getNumConnections() == 0) return false;
    if (!ot::platform::waitReadable(network().getSocket(sock), 10000)) return false;  // bounded
  }
  return true;
}

int startEngine() {
  setenv("ALSOFT_DRIVERS", "null", 0);
  setenv("OSTREL_CONFIG", "/dev/null", 1);
  ot::Config::getInstance().setHeadless(true);
  ot::Config::getInstance().setNetworking(true);
  return ot::GameManager::getInstance().startUp();
}

// The second process: receives until the sender goes away.
int receive(const std::string& port) {
  setenv("OSTREL_LOG", "/tmp/ostrel-net-bench-receiver.log", 0);
  if (startEngine() != 0) return 1;
  auto* p_counter = new Counter(true);
  int sock = network().connect("127.0.0.1", port);
  while (sock == 0 && !ot::platform::stopSignalled() && pumpOne(0, p_counter)) {
  }
  ot::GameManager::getInstance().shutDown();
  return sock == 0 ? 0 : 1;
}

Counter* g_p_counter = nullptr;

void framedMessages(benchmark::State& state) {
  const std::string data = block(static_cast<int>(state.range(0)), DATA_MARK);
  const std::string ack = block(1, ACK_MARK);
  for (auto _ : state) {
    for (int i = 0; i < BATCH; i++) network().send(data.data(), static_cast<int>(data.size()), 0);
    network().send(ack.data(), static_cast<int>(ack.size()), 0);
    if (!pumpOne(0, g_p_counter)) {
      state.SkipWithError("the receiver went away");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations() * BATCH);
  state.SetBytesProcessed(state.iterations() * BATCH * static_cast<std::int64_t>(data.size()));
}

void BM_FramedMessages(benchmark::State& state) { framedMessages(state); }
BENCHMARK(BM_FramedMessages)->Arg(64)->Arg(4096)->Unit(benchmark::kMillisecond)->UseRealTime();

// An object with every attribute away from its default.
ot::Object* makeCourier() {
  auto* p_o = new ot::Object;
  p_o->setType("Courier");
  p_o->setSolidness(ot::SPECTRAL);
  p_o->setPosition(ot::Vector(10.5f, 7.25f));
  p_o->setVelocity(ot::Vector(0.25f, 0.5f));
  p_o->setAltitude(3);
  ot::Path path;
  path.setPoints({ot::Vector(1, 1), ot::Vector(2, 2), ot::Vector(3, 2)});
  p_o->setPath(path);
  p_o->registerInterest("courier-news");
  return p_o;
}

void serializeObject(benchmark::State& state, unsigned int attr) {
  ot::Object* p_o = makeCourier();
  std::stringstream ss;
  for (auto _ : state) {
    ss.str("");
    p_o->serialize(&ss, attr);
    benchmark::DoNotOptimize(ss);
  }
  ot::WorldManager::getInstance().markForDelete(p_o);
}

void deserializeObject(benchmark::State& state, unsigned int attr) {
  ot::Object* p_writer = makeCourier();
  std::stringstream out;
  p_writer->serialize(&out, attr);
  const std::string bytes = out.str();
  auto* p_reader = new ot::Object;
  p_reader->setSolidness(ot::SPECTRAL);
  std::stringstream in;
  for (auto _ : state) {
    in.clear();
    in.str(bytes);
    benchmark::DoNotOptimize(p_reader->deserialize(&in));
  }
  ot::WorldManager::getInstance().markForDelete(p_writer);
  ot::WorldManager::getInstance().markForDelete(p_reader);
}

constexpr unsigned int WHOLE = ot::Object::ALL_OBJECT_ATTRIBUTES;
void BM_SerializeWholeObject(benchmark::State& state) { serializeObject(state, WHOLE); }
void BM_DeserializeWholeObject(benchmark::State& state) { deserializeObject(state, WHOLE); }
void BM_SerializePosition(benchmark::State& state) { serializeObject(state, ot::Object::POSITION); }
void BM_DeserializePosition(benchmark::State& state) { deserializeObject(state, ot::Object::POSITION); }
BENCHMARK(BM_SerializeWholeObject);
BENCHMARK(BM_DeserializeWholeObject);
BENCHMARK(BM_SerializePosition);
BENCHMARK(BM_DeserializePosition);

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--receiver") return receive(argv[2]);
  setenv("OSTREL_LOG", "/tmp/ostrel-net-bench.log", 0);
  if (startEngine() != 0 || network().setServer(true, "0") != 0) {
    std::fprintf(stderr, "the engine didn't start\n");
    return 1;
  }
  g_p_counter = new Counter(false);
  int receiver =
      ot::platform::startProcess(argv[0], {"--receiver", std::to_string(network().getServerPort())});
  int sock = -1;
  for (int waited = 0; receiver > 0 && waited < 10000 && sock < 0; waited++) {
    sock = network().accept();
    if (sock < 0) ot::platform::sleepMilliseconds(1);
  }
  if (sock != 0) {
    std::fprintf(stderr, "the receiving process didn't connect\n");
    ot::GameManager::getInstance().shutDown();
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  ot_bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);

  for (int bytes : {64, 4096}) {
    double seconds = reporter.seconds("BM_FramedMessages/" + std::to_string(bytes) + "/real_time") / BATCH;
    if (seconds > 0)
      std::printf("%4d-byte payloads: %.0f messages/s, %.1f MB/s\n", bytes, 1 / seconds,
                  (bytes + 4) / seconds / 1e6);
  }
  double small = reporter.seconds("BM_FramedMessages/64/real_time");
  double large = reporter.seconds("BM_FramedMessages/4096/real_time");
  if (small > 0 && large > 0)
    std::printf("4 KiB against 64 B: %.2f times the time a message, %.1f times the bytes a second\n",
                large / small, (4100.0 / large) / (68.0 / small));
  double whole_out = reporter.seconds("BM_SerializeWholeObject"),
         whole_in = reporter.seconds("BM_DeserializeWholeObject");
  double pos_out = reporter.seconds("BM_SerializePosition"),
         pos_in = reporter.seconds("BM_DeserializePosition");
  if (whole_out > 0 && whole_in > 0 && pos_out > 0 && pos_in > 0 && small > 0) {
    std::printf("whole object: serialize %.2f us, deserialize %.2f us (%.1f times serialize)\n",
                whole_out * 1e6, whole_in * 1e6, whole_in / whole_out);
    std::printf("position only: serialize %.2f us, deserialize %.2f us\n", pos_out * 1e6, pos_in * 1e6);
    std::printf("a position update written and read costs %.2f times a 64-byte message's trip\n",
                (pos_out + pos_in) / (small / BATCH));
  }
  network().close(-1);
  int status = ot::platform::waitProcess(receiver);
  ot::GameManager::getInstance().shutDown();
  return status == 0 ? 0 : 1;
}
