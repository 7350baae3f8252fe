#include "engine/core/Utility.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <new>

#include "engine/core/LogManager.h"

namespace ot {

namespace {

// Kept quirk: the parse that match() keeps between calls, which answers an
// empty text; the configuration reads its keys that way.
std::string* g_match_keys = nullptr;
std::string* g_match_values = nullptr;
int g_match_count = 0;

void freeMatchArrays() {
  delete[] g_match_keys;
  delete[] g_match_values;
  g_match_keys = nullptr;
  g_match_values = nullptr;
  g_match_count = 0;
}

template <typename T>
std::string streamed(T value) {
  std::stringstream ss;
  ss << value;
  return ss.str();
}

}  // namespace

std::string toString(int i) { return streamed(i); }

std::string toString(float f) { return streamed(f); }

std::string toString(char c) { return c == 0 ? "0" : std::string(1, c); }

std::string toString(bool b) { return b ? "true" : "false"; }

std::string toString(Color color) {
  switch (color) {
    case BLACK: return "Black";
    case RED: return "Red";
    case GREEN: return "Green";
    case YELLOW: return "Yellow";
    case BLUE: return "Blue";
    case MAGENTA: return "Magenta";
    case CYAN: return "Cyan";
    case WHITE: return "White";
    default: return "Unknown color";
  }
}

std::string toString(Solidness solidness) {
  switch (solidness) {
    case HARD: return "hard";
    case SOFT: return "soft";
    case SPECTRAL: return "spectral";
    default: return "undefined";
  }
}

std::string toString(Transform transform) {
  switch (transform) {
    case NONE: return "NONE";
    case VERTICAL: return "VERTICAL";
    case HORIZONTAL: return "HORIZONTAL";
    case BOTH: return "BOTH";
    default: return "UNKNOWN";
  }
}

std::string toString(Location location) {
  switch (location) {
    case TOP_LEFT: return "top-left";
    case TOP_CENTER: return "top-center";
    case TOP_RIGHT: return "top-right";
    case CENTER_LEFT: return "center-left";
    case CENTER_CENTER: return "center-center";
    case CENTER_RIGHT: return "center-right";
    case BOTTOM_LEFT: return "bot-left";
    case BOTTOM_CENTER: return "bot-center";
    case BOTTOM_RIGHT: return "bot-right";
    default: return "unknown";
  }
}

std::string toString(NetworkEventLabel label) {
  switch (label) {
    case UNDEFINED: return "UNDEFINED";
    case ACCEPT: return "ACCEPT";
    // Kept quirk: the misspelling; log readers search for it.
    case CONNECT: return "CONNCECT";
    case CLOSE: return "CLOSE";
    case DATA: return "DATA";
    default: return "UNKNOWN";
  }
}

const char* getTimeString() {
  static char time_str[30];
  time_t now = time(nullptr);
  struct tm* p_time = (now == static_cast<time_t>(-1)) ? nullptr : localtime(&now);
  if (!p_time) {
    snprintf(time_str, sizeof(time_str), "(time error)");
    return time_str;
  }
  snprintf(time_str, sizeof(time_str), "%02d:%02d:%02d", p_time->tm_hour, p_time->tm_min, p_time->tm_sec);
  return time_str;
}

int checkStream(const char* where, std::stringstream* p_ss) {
  if (p_ss->good()) return 0;
  LogManager& log = LogManager::getInstance();
  // eof comes first: a read past the end sets fail as well.
  if (p_ss->eof())
    log.writeLog("%s: Error! Stream eof.", where);
  else if (p_ss->fail())
    log.writeLog("%s: Error! Stream fail.", where);
  else if (p_ss->bad())
    log.writeLog("%s: Error! Stream bad.", where);
  else
    log.writeLog("%s: Error! Stream error.", where);
  return -1;
}

void readRaw(std::stringstream* p_ss, bool* p_value) {
  unsigned char byte = 0;
  p_ss->read(reinterpret_cast<char*>(&byte), 1);
  if (*p_ss) *p_value = byte != 0;
}

void writeString(std::stringstream* p_ss, const std::string& text) {
  writeRaw(p_ss, static_cast<std::uint64_t>(text.size()));
  p_ss->write(text.data(), static_cast<std::streamsize>(text.size()));
}

int readStringBytes(std::stringstream* p_ss, std::uint64_t length, std::string* p_text) {
  if (!*p_ss) return 0;
  if (length > static_cast<std::uint64_t>(p_ss->rdbuf()->in_avail())) {
    p_ss->setstate(std::ios::failbit);
    return 0;
  }
  char* p_buffer = static_cast<char*>(malloc(length + 1));
  if (!p_buffer) return -1;
  p_ss->read(p_buffer, static_cast<std::streamsize>(length));
  p_buffer[length] = '\0';
  if (*p_ss) *p_text = p_buffer;
  free(p_buffer);
  return 0;
}

std::string match(std::string str, const std::string& find) {
  LogManager& log = LogManager::getInstance();
  log.writeLog(LOG_TRACE, "match(\"%s\", \"%s\")", str.c_str(), find.c_str());

  if (!str.empty()) {
    str.erase(std::remove_if(str.begin(), str.end(), [](unsigned char c) { return isspace(c); }), str.end());
    freeMatchArrays();

    int capacity = static_cast<int>(std::count(str.begin(), str.end(), ',')) + 1;
    log.writeLog(LOG_TRACE, "match(): number of elements allocated is %d", capacity);
    g_match_keys = new (std::nothrow) std::string[capacity];
    if (!g_match_keys) {
      log.writeLog("match(): unable to allocate key array!");
      freeMatchArrays();
      return "";
    }
    g_match_values = new (std::nothrow) std::string[capacity];
    if (!g_match_values) {
      log.writeLog("match(): unable to allocate val array!");
      freeMatchArrays();
      return "";
    }
    char* p_copy = strdup(str.c_str());
    if (!p_copy) {
      log.writeLog("match(): Unable to call strdup()!");
      return "";
    }

    char* p_save = nullptr;
    char* p_element = strtok_r(p_copy, ",", &p_save);
    while (p_element && g_match_count < capacity) {
      log.writeLog(LOG_TRACE, "\titem number %d", g_match_count);
      log.writeLog(LOG_TRACE_MORE, "\tp_element is '%s' (%p)", p_element, static_cast<void*>(p_element));
      char* p_token = strtok(p_element, ":");
      if (!p_token) break;
      log.writeLog(LOG_TRACE_MORE, "\ttoken is '%s' (%p)", p_token, static_cast<void*>(p_token));
      g_match_keys[g_match_count] = p_token;
      log.writeLog(LOG_TRACE, "\tkey %s", p_token);
      p_token = strtok(nullptr, ":");
      g_match_values[g_match_count] = p_token ? p_token : "";
      log.writeLog(LOG_TRACE, "\tval %s", g_match_values[g_match_count].c_str());
      g_match_count++;
      p_element = strtok_r(nullptr, ",", &p_save);
    }
    log.writeLog(LOG_TRACE, "match(): parsed.");
    for (int i = 0; i < g_match_count; i++) {
      log.writeLog(LOG_TRACE, "\t%d  %s : %s", i, g_match_keys[i].c_str(), g_match_values[i].c_str());
    }
    free(p_copy);
  }

  log.writeLog(LOG_TRACE, "match(): Looking for match '%s' among %d items.", find.c_str(), g_match_count);
  for (int i = 0; i < g_match_count; i++) {
    log.writeLog(LOG_TRACE_MORE, "match(): %d: %s == %s?", i, find.c_str(), g_match_keys[i].c_str());
    if (g_match_keys[i] == find) return g_match_values[i];
  }
  return "";
}

}  // namespace ot
