#include "tests/support/LogReader.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>

namespace ot_test {

namespace {

std::string withoutPrefix(const std::string& line) {
  static const std::regex prefix(R"(^(\d\d:\d\d:\d\d|\(time error\)) +-?\d+ )");
  return std::regex_replace(line, prefix, "");
}

}  // namespace

std::string testLogPath() { return "/tmp/ostrel-test-" + std::to_string(getpid()) + ".log"; }

std::vector<std::string> readLogMessages(const std::string& path) {
  std::vector<std::string> messages;
  std::ifstream file(path);
  std::string line;
  while (std::getline(file, line)) messages.push_back(withoutPrefix(line));
  return messages;
}

std::vector<std::string> readNewLogMessages(size_t* p_offset, const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(*p_offset));
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  std::vector<std::string> messages;
  size_t start = 0;
  for (size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
    messages.push_back(withoutPrefix(text.substr(start, end - start)));
  *p_offset += start;
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
