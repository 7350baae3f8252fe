#pragma once

#include <string>

#include "engine/core/Types.h"
#include "engine/core/Vector.h"
#include "engine/presentation/DisplayManager.h"

// Draws a string at a place fixed to the view rather than the world, as the
// panels and status lines do; the result of drawString.
int drawViewString(ot::Vector view_pos, const std::string& text, ot::Justification just, ot::Color color);
