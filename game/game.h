#pragma once

// Everything of the dungeon game, for main and the tests.

#include "game/Setup.h"
