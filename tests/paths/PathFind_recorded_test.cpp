// What path searches do on fixed worlds, compared line by line with what the
// first, list-scanning search did on them (tests/paths/data/pathfind-recorded.txt):
// every status of every cycle, the path, and the log lines. A faster search
// must leave all of it as it was. With OSTREL_RECORD_PATHS=<file> the outputs
// are appended to that file instead, for recording from the code they pin.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "engine/core/Config.h"
#include "engine/core/EventPath.h"
#include "engine/core/LogManager.h"
#include "engine/core/ObjectList.h"
#include "engine/paths/PathFind.h"
#include "engine/paths/PathManager.h"
#include "engine/world/WorldManager.h"
#include "tests/support/FakeClock.h"
#include "tests/support/HeadlessEngine.h"
#include "tests/support/LogReader.h"
#include "tests/support/SpyObject.h"

using ot::Box;
using ot::Vector;

namespace {

ot::WorldManager& world() { return ot::WorldManager::getInstance(); }

const Box ONE_CELL(Vector(-0.5f, -0.5f), 0.99f, 0.99f);

ot::Object* put(float x, float y, ot::Solidness solidness = ot::HARD, Box box = ONE_CELL) {
  auto* p_o = new ot::Object;
  p_o->setSolidness(solidness);
  p_o->setBox(box);
  p_o->setPosition(Vector(x, y));
  return p_o;
}

void clearWorld() {
  world().markForDelete(world().getAllObjects(true));
  world().update();
}

// A fresh boundary; set before the objects, since a change empties the grid.
void setBoundary(float width, float height) { world().setBoundary(Box(Vector(0, 0), width, height)); }

std::string number(float v) {
  char text[32];
  snprintf(text, sizeof text, "%.9g", static_cast<double>(v));
  return text;
}

// The path as its first point and one letter per unit step (qwe/a d/zxc as on
// a keyboard); any other step as the point in brackets.
std::string pathText(const std::vector<Vector>& points) {
  if (points.empty()) return "path none";
  std::string text = "path " + number(points[0].getX()) + "," + number(points[0].getY()) + " ";
  static const char* const letters[3] = {"qwe", "a.d", "zxc"};
  for (size_t i = 1; i < points.size(); i++) {
    float dx = points[i].getX() - points[i - 1].getX(), dy = points[i].getY() - points[i - 1].getY();
    if (std::fabs(dx) <= 1 && std::fabs(dy) <= 1 && dx == std::floor(dx) && dy == std::floor(dy) &&
        (dx != 0 || dy != 0))
      text += letters[static_cast<int>(dy) + 1][static_cast<int>(dx) + 1];
    else
      text += "(" + number(points[i].getX()) + "," + number(points[i].getY()) + ")";
  }
  return text;
}

const char* statusName(int status) {
  switch (status) {
    case ot::PATH_FAILED: return "FAILED";
    case ot::PATH_SEARCHING: return "SEARCHING";
    case ot::PATH_FOUND: return "FOUND";
    default: return "?";
  }
}

// Collects the outputs of one scenario as lines of text.
class Recording {
 public:
  Recording() { readLog(false); }
  void add(const std::string& line) {
    takeLog();
    m_text += line + "\n";
  }
  // The log lines written since the last look.
  void takeLog() { readLog(true); }
  // Passes over the log lines written since the last look: those of building
  // and changing the world, which aren't the search's.
  void skipLog() { readLog(false); }
  // Cycles the find until it ends, at most `most` times, then `after` times
  // more; the changes alter the world before the cycles they are keyed by.
  // Statuses run-length.
  void drive(ot::PathFind& find, int most, int after = 0,
             const std::map<int, std::function<void()>>& changes = {}) {
    std::vector<int> statuses;
    int status = ot::PATH_SEARCHING;
    for (int cycle = 0; cycle < most && status == ot::PATH_SEARCHING; cycle++) {
      auto change = changes.find(cycle);
      if (change != changes.end()) {
        takeLog();
        change->second();
        skipLog();
      }
      statuses.push_back(status = find.cycleOnce());
    }
    for (int i = 0; i < after; i++) statuses.push_back(find.cycleOnce());
    std::string runs = "statuses";
    for (size_t i = 0; i < statuses.size();) {
      size_t j = i;
      while (j < statuses.size() && statuses[j] == statuses[i]) j++;
      runs += " " + std::string(statusName(statuses[i])) + "*" + std::to_string(j - i);
      i = j;
    }
    add(runs);
    add(pathText(find.getPath().getPoints()));
  }
  std::string text() {
    takeLog();
    return m_text;
  }

 private:
  void readLog(bool keep) {
    ot::LogManager::getInstance().flush();
    for (const std::string& line : ot_test::readNewLogMessages(&m_log_offset))
      if (keep) m_text += "log " + line + "\n";
  }

  size_t m_log_offset = 0;
  std::string m_text;
};

// The numbers of the benchmark grids' rule: a 32-bit linear congruential step.
class Lcg {
 public:
  explicit Lcg(std::uint32_t seed) : m_state(seed) {}
  int below(int n) {
    m_state = m_state * 1664525u + 1013904223u;
    return static_cast<int>((m_state >> 16) % static_cast<std::uint32_t>(n));
  }

 private:
  std::uint32_t m_state;
};

std::string sourcePath(const std::string& relative) {
  const char* dir = getenv("OSTREL_SOURCE_DIR");
  return std::string(dir ? dir : ".") + "/" + relative;
}

// One of the shared 300 x 90 grids: a hard one-cell object on each '#'.
void loadGrid(const std::string& name) {
  std::ifstream file(sourcePath("bench/grids/" + name + ".txt"));
  ASSERT_TRUE(file) << name;
  setBoundary(300, 90);
  std::string row;
  for (int y = 0; std::getline(file, row); y++)
    for (int x = 0; x < static_cast<int>(row.size()); x++)
      if (row[x] == '#') put(static_cast<float>(x), static_cast<float>(y));
}

void searchGrid(Recording& rec, const std::string& name) {
  loadGrid(name);
  ot::Object* p_seeker = put(1, 1, ot::SPECTRAL);
  rec.skipLog();
  ot::PathFind find(p_seeker, Vector(1, 1), Vector(298, 88));
  rec.drive(find, 300 * 90 + 10);
}

// A world of random objects, boxes, seeker, ends and changes on the way.
void randomWorld(Recording& rec, Lcg& r) {
  float width = static_cast<float>(8 + r.below(33)), height = static_cast<float>(6 + r.below(15));
  setBoundary(width, height);
  ot::Grid* p_grid = world().getSceneGraph().getGrid();
  if (r.below(3) == 0) p_grid->setDimensions(1 + r.below(25), 1 + r.below(10));
  auto coord = [&r](float extent) {
    return static_cast<float>(r.below(static_cast<int>(extent) + 4) - 2) + static_cast<float>(r.below(4)) / 4;
  };
  auto box = [&r]() {
    if (r.below(5) < 3) return ONE_CELL;
    return Box(Vector(-static_cast<float>(r.below(30)) / 10, -static_cast<float>(r.below(30)) / 10),
               static_cast<float>(r.below(40)) / 10, static_cast<float>(r.below(40)) / 10);
  };
  auto solidness = [&r]() {
    int k = r.below(10);
    return k < 7 ? ot::HARD : k < 9 ? ot::SOFT : ot::SPECTRAL;
  };
  std::vector<ot::Object*> objects;
  int count = r.below(70);
  for (int i = 0; i < count; i++) objects.push_back(put(coord(width), coord(height), solidness(), box()));
  if (r.below(5) == 0) {
    // A boundary change drops everything from the grid; moves then enter an
    // object only into the cells it didn't cover before.
    setBoundary(width + 1, height);
    setBoundary(width, height);
    for (ot::Object* p_o : objects)
      if (r.below(2) == 0) p_o->setPosition(p_o->getPosition() + Vector(coord(10) - 4, coord(6) - 3));
    for (int i = 0; i < 5; i++) objects.push_back(put(coord(width), coord(height), solidness(), box()));
  }
  Vector start(coord(width), coord(height)), end(coord(width), coord(height));
  if (r.below(10) != 0) {
    // Mostly inside: the boundary check alone is dull.
    start =
        Vector(std::fmod(std::fabs(start.getX()), width - 1), std::fmod(std::fabs(start.getY()), height - 1));
    end = Vector(std::fmod(std::fabs(end.getX()), width - 1), std::fmod(std::fabs(end.getY()), height - 1));
  }
  ot::Object* p_seeker = put(start.getX(), start.getY(), solidness(), box());
  rec.skipLog();
  ot::PathFind find(p_seeker, start, end);
  ot::Object* p_target = nullptr;
  if (!objects.empty() && r.below(4) == 0)
    find.setTarget(p_target = objects[r.below(static_cast<int>(objects.size()))]);
  int change_at = r.below(3) == 0 ? r.below(40) : -1;
  int change = r.below(5);
  auto changeWorld = [&]() {
    if (objects.empty()) return;
    ot::Object* p_o = objects[r.below(static_cast<int>(objects.size()))];
    switch (change) {
      case 0: put(coord(width), coord(height)); break;
      case 1: p_o->setPosition(Vector(coord(width), coord(height))); break;
      case 2: p_o->setSolidness(p_o->getSolidness() == ot::HARD ? ot::SOFT : ot::HARD); break;
      case 3: p_o->setBox(box()); break;
      default:
        if (p_o != p_target) {
          world().markForDelete(p_o);
          world().update();
        }
    }
  };
  rec.drive(find, static_cast<int>(width * height) * 2 + 10, 2, {{change_at, changeWorld}});
  p_grid->setDimensions(ot::Config::getInstance().getGridWidth(), ot::Config::getInstance().getGridHeight());
}

// Walls of one-cell hard objects along a line.
void wallLine(int x0, int y0, int x1, int y1) {
  for (int x = x0; x <= x1; x++)
    for (int y = y0; y <= y1; y++) put(static_cast<float>(x), static_cast<float>(y));
}

using Scenario = std::function<void(Recording&)>;

const std::map<std::string, Scenario>& scenarios() {
  static const std::map<std::string, Scenario> all = {
      {"StartOnTheEnd",
       [](Recording& rec) {
         ot::PathFind find(put(5, 5, ot::SOFT), Vector(5, 5), Vector(5.2f, 4.9f));
         rec.drive(find, 10, 2);
       }},
      {"AroundAWall",
       [](Recording& rec) {
         wallLine(10, 2, 10, 8);
         ot::PathFind find(put(5, 5, ot::SOFT), Vector(5, 5), Vector(15, 5));
         rec.drive(find, 5000, 1);
       }},
      {"WalledInGoal",
       [](Recording& rec) {
         wallLine(18, 8, 22, 8);
         wallLine(18, 12, 22, 12);
         wallLine(18, 9, 18, 11);
         wallLine(22, 9, 22, 11);
         ot::PathFind find(put(2, 2, ot::SOFT), Vector(2, 2), Vector(20, 10));
         rec.drive(find, 100000, 3);
       }},
      {"DiagonalFlanks",
       [](Recording& rec) {
         put(6, 5);
         ot::Object* p_seeker = put(5, 5, ot::SOFT);
         ot::PathFind one(p_seeker, Vector(5, 5), Vector(6, 6));
         rec.drive(one, 100);
         put(5, 6);
         ot::PathFind two(p_seeker, Vector(5, 5), Vector(6, 6));
         rec.drive(two, 100);
       }},
      {"TargetOnHardGround",
       [](Recording& rec) {
         ot::Object* p_target = put(20, 5, ot::HARD, Box(Vector(-1.6f, -1.6f), 3.2f, 3.2f));
         ot::PathFind find(put(5, 5, ot::SOFT), Vector(5, 5), Vector(20, 5));
         find.setTarget(p_target);
         rec.drive(find, 5000, 2);
       }},
      {"EndInsideAHardObject",
       [](Recording& rec) {
         put(30, 10, ot::HARD, Box(Vector(-4, -4), 8, 8));
         wallLine(20, 0, 20, 15);
         ot::PathFind find(put(5, 5, ot::SOFT), Vector(5, 5), Vector(31, 11));
         rec.drive(find, 5000);
       }},
      {"OverlappingHardObjectsInBothOrders",
       [](Recording& rec) {
         // Where two hard objects overlap, the first in the grid's order decides.
         put(12, 6);
         put(12, 6, ot::HARD, Box(Vector(-3, -3), 6, 6));
         put(30, 6, ot::HARD, Box(Vector(-3, -3), 6, 6));
         put(30, 6);
         put(31, 7, ot::SOFT);
         ot::Object* p_seeker = put(2, 6, ot::SOFT);
         ot::PathFind first(p_seeker, Vector(2, 6), Vector(12.4f, 6.3f));
         rec.drive(first, 5000);
         ot::PathFind second(p_seeker, Vector(2, 6), Vector(30, 6));
         rec.drive(second, 5000);
       }},
      {"SoftAndSpectralObjectsDontBlock",
       [](Recording& rec) {
         for (int y = 0; y < 24; y++) put(10, static_cast<float>(y), y % 2 ? ot::SOFT : ot::SPECTRAL);
         ot::PathFind find(put(5, 5, ot::HARD), Vector(5, 5), Vector(15, 7));
         rec.drive(find, 5000);
       }},
      {"LargeSeekerBox",
       [](Recording& rec) {
         wallLine(15, 0, 15, 10);
         wallLine(25, 8, 25, 23);
         put(40, 3, ot::HARD, Box(Vector(0.2f, 0.3f), 2.5f, 0.4f));
         ot::Object* p_seeker = put(3, 3, ot::SPECTRAL, Box(Vector(-1.3f, -0.7f), 2.6f, 1.9f));
         ot::PathFind find(p_seeker, Vector(3, 3), Vector(50, 5));
         rec.drive(find, 5000);
       }},
      {"BlockedStartTries",
       [](Recording& rec) {
         put(6, 6);
         ot::PathFind truncated(put(0, 0, ot::SOFT), Vector(5.6f, 5.7f), Vector(9, 9));
         rec.drive(truncated, 5000);
         wallLine(5, 5, 6, 6);
         put(3, 5);
         ot::PathFind slipped(put(0, 0, ot::SOFT), Vector(5.6f, 5.7f), Vector(9, 9));
         rec.drive(slipped, 5000, 1);
         put(6, 3);
         ot::PathFind nowhere(put(0, 0, ot::SOFT), Vector(5.6f, 5.7f), Vector(9, 9));
         rec.drive(nowhere, 5000, 1);
       }},
      {"OutsideTheBoundary",
       [](Recording& rec) {
         ot::Object* p_seeker = put(5, 5, ot::SOFT);
         ot::PathFind end_out(p_seeker, Vector(5, 5), Vector(500, 5));
         rec.drive(end_out, 10);
         ot::PathFind start_out(p_seeker, Vector(-1, 5), Vector(5, 5));
         rec.drive(start_out, 10);
         // Inside the boundary, but rounding to the cell past its last.
         ot::PathFind start_rounds_out(p_seeker, Vector(79.7f, 5), Vector(5, 5));
         rec.drive(start_rounds_out, 10, 2);
         ot::PathFind both_round_out(p_seeker, Vector(79.7f, 5), Vector(79.8f, 5.2f));
         rec.drive(both_round_out, 10, 1);
         ot::PathFind none(nullptr, Vector(5, 5), Vector(6, 6));
         rec.drive(none, 10);
       }},
      {"WorldChangesBetweenCycles",
       [](Recording& rec) {
         ot::Object* p_seeker = put(5, 5, ot::SOFT);
         ot::Object* p_gate = put(12, 6);
         ot::PathFind find(p_seeker, Vector(5, 5), Vector(20, 6));
         std::vector<ot::Object*> wall;
         // A wall goes up; its gate opens, a stone in it softens, the seeker grows.
         rec.drive(find, 5000, 0,
                   {{3,
                     [&] {
                       for (int y = 0; y < 24; y++)
                         if (y != 6) wall.push_back(put(12, static_cast<float>(y)));
                     }},
                    {40, [&] { p_gate->setPosition(Vector(12, 20)); }},
                    {60, [&] { wall[3]->setSolidness(ot::SOFT); }},
                    {80, [&] { p_seeker->setBox(Box(Vector(-1, -1), 2, 2)); }}});
       }},
      {"HardStoneSoftensMidway",
       [](Recording& rec) {
         std::vector<ot::Object*> wall;
         for (int y = 0; y < 24; y++) wall.push_back(put(12, static_cast<float>(y)));
         ot::PathFind find(put(5, 5, ot::SOFT), Vector(5, 5), Vector(20, 6));
         rec.drive(find, 5000, 0, {{5, [&] { wall[9]->setSolidness(ot::SOFT); }}});
       }},
      {"ObjectsHalfInTheGrid",
       [](Recording& rec) {
         std::vector<ot::Object*> edge, wall, row;
         for (int y = 0; y < 24; y++) {
           edge.push_back(put(1, static_cast<float>(y)));
           if (y != 12) wall.push_back(put(18, static_cast<float>(y)));
         }
         for (int x = 40; x < 70; x++)
           if (x != 55) row.push_back(put(static_cast<float>(x), 6));
         // The boundary change empties the grid; the moves then enter each
         // object only into the cells it didn't cover before: the edge stones
         // into the list of what reaches outside, the wall into the second
         // column of grid cells, the row into the second row.
         setBoundary(81, 24);
         setBoundary(80, 24);
         for (ot::Object* p_o : edge) p_o->setPosition(p_o->getPosition() + Vector(-0.8f, 0));
         for (ot::Object* p_o : wall) p_o->setPosition(p_o->getPosition() + Vector(1.6f, 0));
         for (ot::Object* p_o : row) p_o->setPosition(p_o->getPosition() + Vector(0, 1.6f));
         ot::Object* p_seeker = put(1, 2, ot::SOFT);
         ot::PathFind along_the_edge(p_seeker, Vector(1, 2), Vector(1, 20));
         rec.drive(along_the_edge, 5000);
         ot::PathFind through_the_wall(p_seeker, Vector(5, 5), Vector(30, 5));
         rec.drive(through_the_wall, 5000);
         ot::PathFind through_the_row(p_seeker, Vector(50, 2), Vector(50, 15));
         rec.drive(through_the_row, 5000);
       }},
      {"SpectralSeekerGrows",
       [](Recording& rec) {
         // Not in the grid, the seeker changes nothing there by growing.
         wallLine(30, 0, 30, 9);
         wallLine(30, 11, 30, 23);
         ot::Object* p_seeker = put(5, 10, ot::SPECTRAL);
         ot::PathFind find(p_seeker, Vector(5, 10), Vector(50, 10));
         rec.drive(find, 5000, 0, {{4, [&] { p_seeker->setBox(Box(Vector(-1, -1), 2, 2)); }}});
       }},
      {"TouchingBoxes",
       [](Recording& rec) {
         // Boxes of a whole cell touch their neighbours' cells, and touching collides.
         for (int y = 3; y < 20; y++)
           put(20, static_cast<float>(y), ot::HARD, Box(Vector(-0.5f, -0.5f), 1, 1));
         put(40.25f, 10.75f, ot::HARD, Box(Vector(-1.25f, -0.25f), 2.5f, 0.5f));
         ot::PathFind find(put(5, 10, ot::SOFT), Vector(5, 10), Vector(60, 10));
         rec.drive(find, 5000);
       }},
      {"ManagerTellsTheWalkers",
       [](Recording& rec) {
         auto* p_first = new ot_test::SpyObject("Walker");
         auto* p_second = new ot_test::SpyObject("Walker");
         p_first->setSolidness(ot::SOFT);
         p_second->setSolidness(ot::SOFT);
         p_first->setPosition(Vector(5, 5));
         p_second->setPosition(Vector(5, 15));
         // The first, on arriving, walls the second's straight way off.
         p_first->on_event = [](ot_test::SpyObject&, const ot::Event*) { wallLine(30, 0, 30, 22); };
         p_first->pathTo(Vector(8, 5));
         p_second->pathTo(Vector(60, 15));
         ot_test::FakeClock clock;
         ot::PathManager::getInstance().cycle(0);
         for (ot_test::SpyObject* p_o : {p_first, p_second}) {
           rec.add("events " + std::to_string(p_o->count(ot::PATH_EVENT)) + " following " +
                   std::to_string(p_o->getFollowPath()));
           rec.add(pathText(p_o->getPath().getPoints()));
         }
       }},
      {"RandomWorlds",
       [](Recording& rec) {
         Lcg r(20260501);
         for (int i = 0; i < 60; i++) {
           rec.add("world " + std::to_string(i));
           randomWorld(rec, r);
           clearWorld();
           rec.skipLog();
         }
       }},
      {"GridRandom30", [](Recording& rec) { searchGrid(rec, "random30"); }},
      {"GridMaze", [](Recording& rec) { searchGrid(rec, "maze"); }},
      {"GridOpen", [](Recording& rec) { searchGrid(rec, "open"); }},
  };
  return all;
}

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> result;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) result.push_back(line);
  return result;
}

// The recorded blocks by scenario name.
std::map<std::string, std::string> recorded() {
  std::map<std::string, std::string> blocks;
  std::ifstream file(sourcePath("tests/paths/data/pathfind-recorded.txt"));
  std::string line, name;
  while (std::getline(file, line)) {
    if (line.rfind("== ", 0) == 0)
      name = line.substr(3);
    else
      blocks[name] += line + "\n";
  }
  return blocks;
}

class PathFindRecorded : public ot_test::HeadlessEngine, public ::testing::WithParamInterface<std::string> {};

TEST_P(PathFindRecorded, GivesTheRecordedOutput) {
  Recording rec;
  scenarios().at(GetParam())(rec);
  std::string text = rec.text();
  if (const char* record = getenv("OSTREL_RECORD_PATHS")) {
    std::ofstream(record, std::ios::app) << "== " << GetParam() << "\n" << text;
    return;
  }
  std::vector<std::string> want = lines(recorded()[GetParam()]), got = lines(text);
  ASSERT_FALSE(want.empty()) << "nothing recorded for " << GetParam();
  for (size_t i = 0; i < want.size() && i < got.size(); i++) ASSERT_EQ(want[i], got[i]) << "line " << i + 1;
  EXPECT_EQ(want.size(), got.size());
}

std::vector<std::string> scenarioNames() {
  std::vector<std::string> names;
  for (const auto& entry : scenarios()) names.push_back(entry.first);
  return names;
}

INSTANTIATE_TEST_SUITE_P(Paths, PathFindRecorded, ::testing::ValuesIn(scenarioNames()),
                         [](const ::testing::TestParamInfo<std::string>& param) { return param.param; });

}  // namespace
