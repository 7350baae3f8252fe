#pragma once

// Everything of the dungeon game, for main and the tests.

#include "game/Enemy.h"
#include "game/Floors.h"
#include "game/GameOver.h"
#include "game/GameTimer.h"
#include "game/GridEntity.h"
#include "game/Hero.h"
#include "game/Level.h"
#include "game/Projectile.h"
#include "game/Setup.h"
#include "game/Shop.h"
#include "game/Slash.h"
#include "game/Spawner.h"
#include "game/ViewText.h"
