#pragma once

#include <string>
#include <vector>

class Hero;

// The two floors take turns in the world: taking the stairs stashes the
// enemies of the floor left behind and brings back those of the floor entered
// (or, on a first visit, spawns them afresh).

// An enemy put aside with its floor. Damage taken rather than hit points, so
// that it comes back at the strength of the level then, less what it had lost.
struct SavedEnemy {
  int type;
  int x;
  int y;
  int damage_taken;
};

// Whether each floor has been populated; floor index 0 is from the start.
extern bool g_floor_visited[2];
// The enemies of each floor while it isn't the current one.
extern std::vector<SavedEnemy> g_floor_stash[2];

// Takes the hero to the other floor when it stands on the stairs; true when
// the floor changed.
bool useStairs(Hero* p_hero);
// Moves every living enemy into the floor's stash, with no reward or effect.
void saveEnemies(int floor);
// Brings the floor's stashed enemies back where their tiles are free, then
// empties the stash.
void restoreEnemies(int floor);
// Marks every object of that type for deletion.
void removeAllOfType(const std::string& type);
// Fills the current floor's spawn points through the Spawner.
void spawnInitialAll();
