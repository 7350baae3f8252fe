#pragma once

// What the network example's two programs agree on: the sprite the object
// wears, which attributes a newcomer gets, and how a message is framed.

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>

#include "engine/world/Object.h"

namespace net_example {

const char* const SPRITE_FILE = "sprites/examples/coin-robust.txt";
const char* const SPRITE_LABEL = "coin";

// Everything but the id, which is the client's own business, and the
// interests, which would replace the copy's.
constexpr unsigned int FULL_STATE = ot::Object::ALL_OBJECT_ATTRIBUTES & ~ot::Object::ID & ~ot::Object::EVENTS;

// A block for NetworkManager::send: the 4-byte length of the whole, then the payload.
inline std::string frame(const std::stringstream& payload) {
  std::string bytes = payload.str();
  std::int32_t size = static_cast<std::int32_t>(bytes.size() + 4);
  std::string block(4, '\0');
  std::memcpy(&block[0], &size, 4);
  return block + bytes;
}

}  // namespace net_example
