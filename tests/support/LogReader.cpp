#include "tests/support/LogReader.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <regex>

namespace ot_test {

std::string testLogPath() { return "/tmp/ostrel-test-" + std::to_string(getpid()) + ".log"; }

std::vector<std::string> readLogMessages(const std::string& path) {
  static const std::regex prefix(R"(^(\d\d:\d\d:\d\d|\(time error\)) +-?\d+ )");
  std::vector<std::string> messages;
  std::ifstream file(path);
  std::string line;
  while (std::getline(file, line)) messages.push_back(std::regex_replace(line, prefix, ""));
  return messages;
}

bool logHas(const std::vector<std::string>& messages, const std::string& text) {
  return std::find(messages.begin(), messages.end(), text) != messages.end();
}

int logCount(const std::vector<std::string>& messages, const std::string& text) {
  return static_cast<int>(std::count(messages.begin(), messages.end(), text));
}

std::string writeTempFile(const std::string& name, const std::string& text) {
  std::string path = "/tmp/ostrel-test-" + std::to_string(getpid()) + "-" + name;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  return path;
}

}  // namespace ot_test
