#pragma once

#include <cstdarg>
#include <cstdio>
#include <map>
#include <string>

#include "engine/core/Manager.h"

#if defined(__GNUC__)
#define OT_PRINTF_FORMAT(fmt_index, first_arg) __attribute__((format(printf, fmt_index, first_arg)))
#else
#define OT_PRINTF_FORMAT(fmt_index, first_arg)
#endif

namespace ot {

// The levels of the engine's own levelled lines, from the least talkative up.
// A game may log at any level; the log writes a line when its level is at most
// the one set with setLogLevel (0 by default: levelled lines are dropped).
constexpr int LOG_INFO = 1;         // starting, stopping, warnings worth a look
constexpr int LOG_NOTICE = 2;       // a setting changed on the way; the level itself
constexpr int LOG_DETAIL = 5;       // what was loaded, found or configured
constexpr int LOG_DEBUG = 10;       // the random seed, the splash
constexpr int LOG_EVENTS = 15;      // each key, send and receive; a sprite's frames
constexpr int LOG_LINES = 20;       // each line a reader takes in
constexpr int LOG_TRACE = 25;       // each step of parsing and serializing
constexpr int LOG_TRACE_MORE = 28;  // each token and comparison of those steps
constexpr int LOG_PIXELS = 30;      // each conversion between cells and pixels

// The engine's diary: one text file, truncated on each run, whose lines read
// "hh:mm:ss step text". It works before it is started (lines go to standard
// error until the file is open), because everything else reports through it.
//
//   LogManager::getInstance().writeLog("Grid::startUp(): cells %d", n);     // always
//   LogManager::getInstance().writeLog(LOG_DETAIL, "Grid::startUp(): cells %d", n);  // at LOG_DETAIL or more
class LogManager : public Manager {
 public:
  static LogManager& getInstance();

  ~LogManager() override;
  // Opens OSTREL_LOG, or the configured log file; -1 if it can't be opened.
  int startUp() override;
  void shutDown() override;

  // Writes whatever the level. Returns the characters of the text, -1 on a failed write.
  int writeLog(const char* fmt, ...) OT_PRINTF_FORMAT(2, 3);
  // Writes only when log_level is at most the set level; otherwise 0.
  int writeLog(int log_level, const char* fmt, ...) OT_PRINTF_FORMAT(3, 4);
  // The same line, in the named file, opened on first use. Both forms always
  // write: the level isn't looked at.
  int writeMyLog(const std::string& file_name, int log_level, const char* fmt, ...) OT_PRINTF_FORMAT(4, 5);
  int writeMyLog(const std::string& file_name, const char* fmt, ...) OT_PRINTF_FORMAT(3, 4);

  // With flushing on, each line is in the file when the call returns; what
  // was written before is flushed at once.
  void setFlush(bool do_flush);
  // LOG_NOTICE and above announce themselves in the log.
  void setLogLevel(int log_level);
  int getLogLevel() const { return m_log_level; }
  void setLogTimeString(bool log_time_string) { m_log_time_string = log_time_string; }
  void setLogStepCount(bool log_step_count) { m_log_step_count = log_step_count; }
  void flush();

 private:
  LogManager();

  int writeLine(FILE* p_f, int line_level, const char* fmt, va_list args);
  FILE* streamFor(const std::string& file_name);

  bool m_do_flush = false;
  int m_log_level = 0;
  bool m_log_time_string = true;
  bool m_log_step_count = true;
  FILE* m_p_f = nullptr;                 // the main file; null means standard error
  std::map<std::string, FILE*> m_files;  // files opened by writeMyLog
};

}  // namespace ot
