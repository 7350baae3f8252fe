#pragma once

#include <sstream>
#include <string>

#include "engine/core/Types.h"

namespace ot {

// Number and label conversions, through a string stream's default format
// (six significant digits for a float).
std::string toString(int i);
std::string toString(float f);
// "0" for the zero character, otherwise that one character.
std::string toString(char c);
std::string toString(bool b);
std::string toString(Color color);
std::string toString(Solidness solidness);
std::string toString(Transform transform);
std::string toString(Location location);
std::string toString(NetworkEventLabel label);

// Local time as "hh:mm:ss", or "(time error)". The buffer is static and is
// overwritten by the next call.
const char* getTimeString();

// 0 if the stream is good; otherwise logs why, naming where, and returns -1.
int checkStream(const char* where, std::stringstream* p_ss);

// Looks a key up in "key:value,key:value" text. A non-empty str is parsed
// anew (all white space removed); an empty str searches the last parse.
// Returns the value, or an empty string when the key is absent or has none.
std::string match(std::string str, std::string find);

}  // namespace ot
