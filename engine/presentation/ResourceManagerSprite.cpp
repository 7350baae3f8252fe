#include <algorithm>
#include <cstdlib>
#include <new>

#include "engine/core/LogManager.h"
#include "engine/presentation/ResourceManager.h"
#include "engine/presentation/Sprite.h"

// Reading sprite files. Two formats, told apart by the first line:
//   simple  - five header lines by position (frames, width, height, slowdown,
//             colour), then the rows of every frame, nothing in between;
//   robust  - <HEADER> keys, a <BODY> of frames each closed by "end", and a
//             <FOOTER> with a version.
// Every refusal leaves a trail in the log naming the line. Some of those line
// numbers are reckoned loosely (see the kept quirks in loadRobustSprite);
// log readers know them as they are.

namespace ot {

namespace {

// Where the readers are in the present file; loadSprite starts it at 0.
int line_number = 0;

const char* const COLOR_NAMES[] = {"black", "red", "green", "yellow", "blue", "magenta", "cyan", "white"};

// The colour of one of the eight names, or UNDEFINED_COLOR.
Color colorNamed(const std::string& name) {
  for (int i = 0; i < 8; i++) {
    if (name == COLOR_NAMES[i]) return static_cast<Color>(i);
  }
  return UNDEFINED_COLOR;
}

bool startsWith(const std::string& line, const char* token) {
  return line.compare(0, std::char_traits<char>::length(token), token) == 0;
}

// The sprite's frames row by row, for the most talkative log level.
void dumpFrames(const Sprite* p_sprite, const std::string& label) {
  LogManager& log = LogManager::getInstance();
  if (log.getLogLevel() < LOG_EVENTS) return;
  log.writeLog(LOG_EVENTS, "RM::loadSprite(): Sprite '%s' frames:", label.c_str());
  for (int f = 0; f < p_sprite->getFrameCount(); f++) {
    log.writeLog(LOG_EVENTS, "\tFrame %d:", f + 1);
    Frame frame = p_sprite->getFrame(f);
    std::string text = frame.getString();
    size_t width = static_cast<size_t>(frame.getWidth());
    for (int row = 0; row < frame.getHeight(); row++) {
      log.writeLog(LOG_EVENTS, "\t%s", text.substr(static_cast<size_t>(row) * width, width).c_str());
    }
  }
}

}  // namespace

int ResourceManager::loadSprite(const std::string& filename, const std::string& label) {
  LogManager& log = LogManager::getInstance();
  if (refuseUntilStarted()) return -1;
  if (static_cast<int>(m_sprite.size()) == MAX_SPRITES) {
    // Kept quirk: these two carry the robust reader's name; log readers know them.
    log.writeLog("RM::loadRobustSprite(): Error! Cannot add more Sprites (max is %d).", MAX_SPRITES);
    log.writeLog("RM::loadRobustSprite(): Sprite '%s' not loaded.", label.c_str());
    return -1;
  }
  log.writeLog(LOG_INFO, "RM::loadSprite(): Loading sprite '%s'.", filename.c_str());
  std::ifstream file(filename);
  if (!file.is_open()) {
    log.writeLog("RM::loadSprite(): Error! Cannot open file '%s'.", filename.c_str());
    log.writeLog("RM::loadSprite(): Sprite '%s' not loaded.", label.c_str());
    return -1;
  }
  line_number = 0;
  std::string first = getLine(file, false);
  file.clear();  // a one-line file has hit its end
  file.seekg(0);

  std::unique_ptr<Sprite> p_sprite;
  if (first == "<HEADER>") {
    log.writeLog(LOG_DETAIL, "RM::loadSprite(): assuming robust sprite file format.");
    p_sprite = loadRobustSprite(file);
  } else if (atoi(first.c_str()) < 1) {
    log.writeLog("RM::loadSprite(): Error! Unknown sprite file format.");
    log.writeLog("RM::loadSprite(): First line is '%s'.", first.c_str());
    log.writeLog("RM::loadSprite(): Sprite '%s' NOT loaded.", label.c_str());
    return -1;
  } else {
    log.writeLog(LOG_DETAIL, "RM::loadSprite(): assuming simple sprite file format.");
    p_sprite = loadSimpleSprite(file);
  }
  if (!p_sprite) {
    log.writeLog("RM::loadSprite(): Sprite '%s' NOT loaded.", label.c_str());
    return -1;
  }
  p_sprite->setLabel(label);
  dumpFrames(p_sprite.get(), label);
  m_sprite.push_back(std::move(p_sprite));
  log.writeLog(LOG_DETAIL, "RM::loadSprite(): Sprite '%s' loaded.", label.c_str());
  return 0;
}

std::string getLine(std::ifstream& file, bool count) {
  if (!file.good()) {
    LogManager::getInstance().writeLog("getLine(): Error! Unexpected end of file.");
    return "";
  }
  std::string line;
  std::getline(file, line);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (count) line_number++;
  return line;
}

std::unique_ptr<Sprite> ResourceManager::loadSimpleSprite(std::ifstream& file) {
  LogManager& log = LogManager::getInstance();
  if (refuseUntilStarted()) return nullptr;
  const char* const missing[] = {"\tMissing frames (an integer).", "\tMissing width (an integer).",
                                 "\tMissing height (an integer).", "\tMissing slowdown (an integer).",
                                 "\tMissing color (a string)."};
  std::string header[5];
  int value[4] = {0, 0, 0, 0};  // frames, width, height, slowdown
  // Each header line is checked as soon as it is read, so the error names its line.
  for (int i = 0; i < 5; i++) {
    header[i] = getLine(file, true);
    if (header[i].empty()) {
      log.writeLog("RM::loadSimpleSprite(): Error! Unexpected end of file.");
      log.writeLog("%s", missing[i]);
      return nullptr;
    }
    log.writeLog(LOG_LINES, "\tLine %2d: '%s'", line_number, header[i].c_str());
    if (i < 4) value[i] = atoi(header[i].c_str());
    if (i == 0 && value[0] < 1) {
      log.writeLog("RM::loadSimpleSprite(): Error line %d! Number of frames is %d.", line_number, value[0]);
      return nullptr;
    }
    if (i == 1 && value[1] < 1) {
      log.writeLog("RM::loadSimpleSprite(): Error line %d! Width is '%s'.", line_number, header[1].c_str());
      return nullptr;
    }
    if (i == 2 && value[2] < 1) {
      log.writeLog("RM::loadSimpleSprite(): Error line %d! Height is '%s'.", line_number, header[2].c_str());
      return nullptr;
    }
    if (i == 3 && value[3] < 0) {
      log.writeLog("RM::loadSimpleSprite(): Error line %d! Slowdown is '%s'.", line_number,
                   header[3].c_str());
      return nullptr;
    }
  }
  const int frames = value[0], width = value[1], height = value[2], slowdown = value[3];
  const Color color = colorNamed(header[4]);
  if (color == UNDEFINED_COLOR) {
    log.writeLog("RM::loadSimpleSprite(): Error line %d! Unrecognized color '%s'.", line_number,
                 header[4].c_str());
    log.writeLog("  Valid colors are: black, red, green, yellow,");
    log.writeLog("                    blue, magenta, cyan or white.");
    return nullptr;
  }
  log.writeLog(LOG_DETAIL, "\t      Frames: %d", frames);
  log.writeLog(LOG_DETAIL, "\t       Width: %d", width);
  log.writeLog(LOG_DETAIL, "\t      Height: %d", height);
  log.writeLog(LOG_DETAIL, "\t    Slowdown: %d", slowdown);
  log.writeLog(LOG_DETAIL, "\t       Color: %s", header[4].c_str());

  std::unique_ptr<Sprite> p_sprite(new (std::nothrow) Sprite(frames));
  if (!p_sprite) {
    log.writeLog("RM::loadSimpleSprite(): Error! Unable to create Sprite.");
    return nullptr;
  }
  p_sprite->setWidth(width);
  p_sprite->setHeight(height);
  p_sprite->setSlowdown(slowdown);
  p_sprite->setColor(color);
  p_sprite->setTransparency(0);

  for (int f = 1; f <= frames; f++) {
    log.writeLog(LOG_EVENTS, "RM::loadSimpleSprite(): Reading frame %d of %d.", f, frames);
    std::string text;
    for (int row = 1; row <= height; row++) {
      std::string line = getLine(file, true);
      // A blank row reads as the end of the file.
      if (line.empty()) {
        log.writeLog("RM::loadSimpleSprite(): Error! Unexpected end of file.");
        log.writeLog("\tReading frame %d of %d, row %d of %d.", f, frames, row, height);
        return nullptr;
      }
      if (static_cast<int>(line.size()) != width) {
        log.writeLog("RM::loadSimpleSprite(): Error line %d!", line_number);
        log.writeLog("\tLine %2d: '%s'", line_number, line.c_str());
        log.writeLog("\tWidth is %d, expected %d.", static_cast<int>(line.size()), width);
        return nullptr;
      }
      log.writeLog(LOG_LINES, "\tLine %2d: '%s'", line_number, line.c_str());
      text += line;
    }
    if (p_sprite->addFrame(Frame(width, height, text)) == -1) {
      log.writeLog("RM::loadSimpleSprite(): Error! Cannot add Frame.");
      log.writeLog("\tFramecount is %d, max is %d.", p_sprite->getFrameCount() + 1, frames);
      return nullptr;
    }
  }

  // One final newline reads as an empty last line at the end of the stream;
  // anything more, even one blank line, is extra data.
  if (!file.eof()) {
    std::string extra;
    std::getline(file, extra);
    line_number++;
    if (!(file.eof() && extra.empty())) {
      if (!extra.empty() && extra.back() == '\r') extra.pop_back();
      log.writeLog("RM::loadSimpleSprite(): Error line %d!", line_number);
      log.writeLog("\tExtra file data: '%s'", extra.c_str());
      return nullptr;
    }
  }
  return p_sprite;
}

std::vector<std::string> readData(std::ifstream& file, const std::string& tag) {
  LogManager& log = LogManager::getInstance();
  const std::string begin = "<" + tag + ">";
  const std::string end = "</" + tag + ">";
  std::string line = getLine(file, true);
  if (line != begin) {
    log.writeLog("readData(): Error line %d! Expected '%s', have '%s'.", line_number, begin.c_str(),
                 line.c_str());
    return {};
  }
  // The first data line goes uncounted and the closing tag is counted after
  // the loop, which leaves line_number on the closing tag.
  std::vector<std::string> data;
  line = getLine(file, false);
  while (line != end && !line.empty()) {
    data.push_back(line);
    line = getLine(file, true);
  }
  if (line.empty()) {
    log.writeLog("readData(): Error! Stop at line %d, never encountered '%s'.", line_number, end.c_str());
    return {};
  }
  line_number++;
  return data;
}

int matchLineInt(std::vector<std::string>& data, const char* token) {
  int result = -1;
  const size_t skip = std::char_traits<char>::length(token) + 1;
  for (auto it = data.begin(); it != data.end();) {
    if (!startsWith(*it, token)) {
      ++it;
      continue;
    }
    if (result != -1)
      LogManager::getInstance().writeLog(LOG_INFO, "matchLineInt(): Warning! '%s' matches multiple lines.",
                                         it->c_str());
    // A line that is just the token has no text after it and reads as 0; the
    // robust loader refuses such lines before it asks.
    result = it->size() >= skip ? atoi(it->c_str() + skip) : 0;
    it = data.erase(it);
  }
  return result;
}

std::string matchLineStr(std::vector<std::string>& data, const char* token) {
  std::string result;
  const size_t skip = std::char_traits<char>::length(token) + 1;
  for (auto it = data.begin(); it != data.end();) {
    if (!startsWith(*it, token)) {
      ++it;
      continue;
    }
    if (!result.empty())
      LogManager::getInstance().writeLog(LOG_INFO, "matchLineStr(): Warning! '%s' matches multiple lines.",
                                         it->c_str());
    result = it->size() >= skip ? it->substr(skip) : "";
    it = data.erase(it);
  }
  return result;
}

Frame readFrame(std::vector<std::string>& data, int width, int height, int line_no) {
  LogManager& log = LogManager::getInstance();
  std::string text;
  for (int row = 0; row < height; row++) {
    if (data.empty()) {
      log.writeLog("\tError! Line %d: No more frame data before 'end'.", line_no + 1);
      return Frame();
    }
    const std::string line = data.front();
    line_no++;
    log.writeLog(LOG_LINES, "\tLine %2d: '%s'", line_no, line.c_str());
    if (static_cast<int>(line.size()) != width) {
      log.writeLog("\tError! Line %d: Line length is %d (frame width is %d).", line_no,
                   static_cast<int>(line.size()), width);
      log.writeLog("\tLine %d: '%s'", line_no, line.c_str());
      return Frame();
    }
    text += line;
    data.erase(data.begin());
  }
  if (data.empty()) {
    log.writeLog("\tError! Line %d: No more frame data before 'end'.", line_no + 1);
    return Frame();
  }
  if (data.front() != "end") {
    // The file-wide count stands after the whole body here, not on this line.
    log.writeLog("\tError! Line %d: Expected '%s'.", line_number, "end");
    log.writeLog("\tLine %d: '%s'", line_no + 1, data.front().c_str());
    return Frame();
  }
  data.erase(data.begin());
  return Frame(width, height, text);
}

std::unique_ptr<Sprite> ResourceManager::loadRobustSprite(std::ifstream& file) {
  LogManager& log = LogManager::getInstance();
  if (refuseUntilStarted()) return nullptr;
  std::vector<std::string> header = readData(file, "HEADER");
  if (header.empty()) return nullptr;
  log.writeLog(LOG_LINES, "ResourceManager::loadRobustSprite(): After header, line number: '%d'",
               line_number);
  // Matching erases lines, so their places in the file are taken now.
  const std::vector<std::string> header_lines = header;
  const int header_start = line_number - static_cast<int>(header.size());
  // Departure: a number key alone on its line, with no value, is a typo: the
  // file is refused rather than the reading ending the game.
  auto bareKey = [&](const char* key) {
    auto at = std::find(header_lines.begin(), header_lines.end(), key);
    if (at == header_lines.end()) return false;
    log.writeLog("RM::loadRobustSprite(): Error line %d! No value for '%s' in header.",
                 header_start + static_cast<int>(at - header_lines.begin()), key);
    return true;
  };

  // Only -1 counts as missing: no ranges are checked in this format.
  const char* const required[] = {"frames", "width", "height"};
  int value[3];
  for (int i = 0; i < 3; i++) {
    if (bareKey(required[i])) return nullptr;
    value[i] = matchLineInt(header, required[i]);
    if (value[i] == -1) {
      log.writeLog("RM::loadRobustSprite(): Error! Missing '%s' in header.", required[i]);
      return nullptr;
    }
  }
  const int frames = value[0], width = value[1], height = value[2];

  std::string color = matchLineStr(header, "color");
  if (color.empty()) {
    log.writeLog(LOG_DETAIL, "RM::loadRobustSprite(): Warning! No '%s' in header.", "color");
    color = "default";
  }
  char transparency = 0;
  const std::string transparency_text = matchLineStr(header, "transparency");
  if (transparency_text.empty()) {
    log.writeLog(LOG_DETAIL, "RM::loadRobustSprite(): Note! No '%s' in header.", "transparency");
  } else if (transparency_text == "\" \"") {
    log.writeLog(LOG_DETAIL, "RM::loadRobustSprite(): transparency is 'space'");
    transparency = ' ';
  } else {
    transparency = transparency_text[0];
  }
  if (bareKey("slowdown")) return nullptr;
  int slowdown = matchLineInt(header, "slowdown");
  if (slowdown == -1) {
    // Kept quirk: 0 here, not the sprite's own default of 1; it plays the same.
    log.writeLog(LOG_DETAIL, "RM::loadRobustSprite(): Note! No '%s' in header.", "slowdown");
    slowdown = 0;
  }
  if (!header.empty()) {
    log.writeLog(LOG_INFO, "RM::loadRobustSprite(): Warning! Unused HEADER lines:");
    for (const std::string& line : header) log.writeLog(LOG_INFO, "\t'%s'", line.c_str());
  }
  log.writeLog(LOG_DETAIL, "\t      Frames: %d", frames);
  log.writeLog(LOG_DETAIL, "\t       Width: %d", width);
  log.writeLog(LOG_DETAIL, "\t      Height: %d", height);
  log.writeLog(LOG_DETAIL, "\t    Slowdown: %d", slowdown);
  if (transparency)
    log.writeLog(LOG_DETAIL, "\tTransparency: '%c'", transparency);
  else
    log.writeLog(LOG_DETAIL, "\tTransparency: (none)");

  const int body_start = line_number;
  std::vector<std::string> body = readData(file, "BODY");
  if (body.empty()) return nullptr;
  log.writeLog(LOG_LINES, "ResourceManager::loadRobustSprite(): After reading body: line number is '%d'",
               line_number);

  std::unique_ptr<Sprite> p_sprite(new (std::nothrow) Sprite(frames));
  if (!p_sprite) {
    log.writeLog("RM::loadRobustSprite(): Error! Unable to create Sprite.");
    return nullptr;
  }
  p_sprite->setWidth(width);
  p_sprite->setHeight(height);
  p_sprite->setSlowdown(slowdown);
  p_sprite->setTransparency(transparency);
  const Color sprite_color = color == "default" ? WHITE : colorNamed(color);
  if (sprite_color == UNDEFINED_COLOR) {
    log.writeLog("RM::loadRobustSprite(): Error! Unrecognized color '%s'.", color.c_str());
    log.writeLog("  Valid colors are: black, red, green, yellow,");
    log.writeLog("                    blue, magenta, cyan and white.");
    return nullptr;
  }
  p_sprite->setColor(sprite_color);
  log.writeLog(LOG_DETAIL, "\t       Color: %s", color.c_str());

  for (int i = 0; i < frames; i++) {
    // Kept quirk: this reckoning starts a line high and leaves out the "end"
    // lines, so the numbers fall behind by one more for each frame passed;
    // log readers know them as they are.
    const Frame frame = readFrame(body, width, height, body_start + i * height + 2);
    if (frame.getString().empty()) {
      log.writeLog("RM::loadRobustSprite(): Error! No frame data to add.");
      return nullptr;
    }
    if (p_sprite->addFrame(frame) == -1) {
      log.writeLog("RM::loadRobustSprite(): Error! Cannot add Frame.");
      log.writeLog("\tFramecount is %d, max is %d", p_sprite->getFrameCount() + 1, frames);
      return nullptr;
    }
  }
  if (!body.empty()) {
    log.writeLog("RM::loadRobustSprite(): Error! Extra BODY:");
    for (const std::string& line : body) log.writeLog("\tLine %d: %s", line_number++, line.c_str());
    return nullptr;
  }

  std::vector<std::string> footer = readData(file, "FOOTER");
  if (footer.empty()) return nullptr;
  if (matchLineStr(footer, "version").empty()) {
    log.writeLog("RM::loadRobustSprite(): Error! Missing '%s' in FOOTER (line %d).", "version", line_number);
    return nullptr;
  }
  if (!footer.empty()) {
    log.writeLog(LOG_INFO, "RM::loadRobustSprite(): Warning! Unused FOOTER lines:");
    for (const std::string& line : footer) log.writeLog(LOG_INFO, "\t'%s'", line.c_str());
  }
  // Whatever follows </FOOTER> isn't read.
  return p_sprite;
}

}  // namespace ot
