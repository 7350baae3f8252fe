#include "engine/presentation/SfmlErrors.h"

#include <mutex>
#include <streambuf>
#include <string>

#include <SFML/System/Err.hpp>

#include "engine/core/LogManager.h"

namespace ot {

namespace {

// Collects characters into lines and writes each finished one to the log.
// Music streams on a thread of SFML's own, which may report too: the lock
// keeps two writers from mixing one line.
class LogLineBuffer : public std::streambuf {
 public:
  void finishLine() {
    std::lock_guard<std::mutex> lock(m_mutex);
    writeLine();
  }

 protected:
  int_type overflow(int_type ch) override {
    if (traits_type::eq_int_type(ch, traits_type::eof())) return traits_type::not_eof(ch);
    std::lock_guard<std::mutex> lock(m_mutex);
    put(traits_type::to_char_type(ch));
    return ch;
  }

  std::streamsize xsputn(const char* p_text, std::streamsize count) override {
    std::lock_guard<std::mutex> lock(m_mutex);
    for (std::streamsize i = 0; i < count; i++) put(p_text[i]);
    return count;
  }

 private:
  void put(char ch) {
    if (ch == '\n')
      writeLine();
    else
      m_line += ch;
  }

  void writeLine() {
    // SFML separates its reports with blank lines, which say nothing in a log.
    if (m_line.find_first_not_of(" \t") != std::string::npos)
      LogManager::getInstance().writeLog("SFML: %s", m_line.c_str());
    m_line.clear();
  }

  std::mutex m_mutex;
  std::string m_line;
};

// Never destroyed: SFML's stream may outlive this file's statics when a
// program ends without shutting the engine down.
LogLineBuffer& logBuffer() {
  static LogLineBuffer* p_buffer = new LogLineBuffer;
  return *p_buffer;
}

std::streambuf* g_p_previous = nullptr;  // the stream's buffer before logSfmlErrors

}  // namespace

void logSfmlErrors() {
  if (g_p_previous) return;
  g_p_previous = sf::err().rdbuf(&logBuffer());
}

void restoreSfmlErrors() {
  if (!g_p_previous) return;
  logBuffer().finishLine();
  sf::err().rdbuf(g_p_previous);
  g_p_previous = nullptr;
}

}  // namespace ot
