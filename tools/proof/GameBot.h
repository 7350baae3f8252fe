#pragma once

#include <string>
#include <utility>
#include <vector>

class Level;

namespace ot_proof {

// Plays the real game in its window as a person would: it reads the window's
// pixels, finds where the view stands by matching the walls it sees against
// the map, finds the hero and the creatures, and presses keys and clicks
// through xdotool. It knows nothing of the game's insides but the map, which
// it takes from a Level in the bot's own headless world.
//
//   GameBot bot(window, *getLevel());
//   ASSERT_TRUE(bot.walkTo(33, 6, 120));
//   bot.press("e");
class GameBot {
 public:
  // What one look at the window shows.
  struct Sight {
    bool hero_seen = false;  // false while the hero blinks or is gone
    int hero_x = 0;          // the hero's tile
    int hero_y = 0;
    int floor = 0;                               // the floor whose walls match what is seen
    std::vector<std::pair<int, int>> creatures;  // tiles of the other creatures in view
    bool shop_open = false;
    bool game_over = false;
    bool window_gone = false;  // the game has ended, or never showed
  };

  GameBot(unsigned long window, Level& level);

  Sight look();
  // Walks the map's shortest way to the tile, fighting (unless told not to)
  // whatever comes next to the hero or stands in the way; false when it isn't
  // there within the seconds given, or the run ended.
  bool walkTo(int x, int y, double seconds, bool strike = true);
  // One step toward the creature nearest the hero, without striking; false
  // when there is neither a creature nor a hero in sight.
  bool approachNearestCreature();
  // Strikes (button 1) or shoots (button 3) toward the neighbouring tile (dx,
  // dy) of where the hero stood at the last look.
  void attack(int button, int dx, int dy);
  // Presses and releases a key, by its X name ("e", "1", "shift", "q").
  void press(const std::string& key);
  // Saves the window as a PNG file; false when it can't.
  bool saveScreenshot(const std::string& path);

 private:
  struct Capture;
  Capture capture(bool keep_pixels = false);
  enum class Threat { NONE, NEAR, FOUGHT };
  // Blocks and strikes a creature on a neighbouring tile (FOUGHT), or shoots
  // at one in line; NEAR when one is in line or within three tiles.
  Threat fight(const Sight& sight);
  // Steps once toward the neighbouring tile; false when the hero didn't get there.
  bool step(const Sight& from, int dx, int dy);
  // The first step of the shortest walkable way, or (0,0) when there is none.
  std::pair<int, int> firstStep(int floor, int from_x, int from_y, int to_x, int to_y);
  void rememberFloor(int floor);

  unsigned long m_window;
  Level& m_level;
  int m_view_x = 0;  // where the view stood at the last look, in spaces
  int m_view_y = 0;
  int m_floor = 0;
  int m_window_width = 1024;
  int m_window_height = 768;
  Sight m_last;          // what the last look showed
  int m_lost_looks = 0;  // looks in a row whose walls matched nowhere near the last view
};

}  // namespace ot_proof
