#pragma once

#include <cstdint>
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

// The wire form of a value is its memory form, copied byte for byte with no
// conversion: little-endian on every machine the engine targets. A failed
// read leaves the stream failed, for checkStream to report at the end.
template <typename T>
void writeRaw(std::stringstream* p_ss, const T& value) {
  p_ss->write(reinterpret_cast<const char*>(&value), sizeof(T));
}
template <typename T>
void readRaw(std::stringstream* p_ss, T* p_value) {
  p_ss->read(reinterpret_cast<char*>(p_value), sizeof(T));
}
// A bool travels as one byte; any byte but 0 reads as true. Unchanged when the
// read fails.
void readRaw(std::stringstream* p_ss, bool* p_value);
// The value read, or present when the read fails: what a setter is then given.
template <typename T>
T readOver(std::stringstream* p_ss, T present) {
  readRaw(p_ss, &present);
  return present;
}

// A string travels as a 64-bit length, then its bytes with no NUL.
void writeString(std::stringstream* p_ss, const std::string& text);
// Reads the bytes of a string whose length was just read, through a buffer of
// length + 1 from malloc: -1 when no buffer can be had, the bytes left unread.
// A length past the end of the stream fails the stream instead, so a garbled
// length never asks for memory.
int readStringBytes(std::stringstream* p_ss, std::uint64_t length, std::string* p_text);

// Looks a key up in "key:value,key:value" text. A non-empty str is parsed
// anew (all white space removed); an empty str searches the last parse.
// Returns the value, or an empty string when the key is absent or has none.
std::string match(std::string str, const std::string& find);

}  // namespace ot
