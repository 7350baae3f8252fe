#include "engine/core/LogManager.h"

#include <cstdarg>
#include <cstdlib>

#include "engine/core/Config.h"
#include "engine/core/GameManager.h"
#include "engine/core/Utility.h"

namespace ot {

LogManager::LogManager() { setType("LogManager"); }

LogManager& LogManager::getInstance() {
  static LogManager log_manager;
  return log_manager;
}

LogManager::~LogManager() {
  if (m_p_f) fclose(m_p_f);
  m_p_f = nullptr;
}

int LogManager::startUp() {
  if (refuseSecondStart()) return -1;
  const char* p_env = getenv("OSTREL_LOG");
  std::string file_name = p_env ? p_env : Config::getInstance().getLogfile();
  m_p_f = fopen(file_name.c_str(), "w");
  if (!m_p_f) {
    writeLog("LogManager::startup(): Warning! Unable to open file '%s'.", file_name.c_str());
    return -1;
  }
  Manager::startUp();
  writeLog(LOG_DETAIL, "LogManager::startUp(): successfully started.");
  return 0;
}

void LogManager::shutDown() {
  Manager::shutDown();
  writeLog(LOG_DETAIL, "LogManager::shutDown(): successfully stopped.");
  if (m_p_f) fclose(m_p_f);
  m_p_f = nullptr;
  for (auto& entry : m_files) {
    if (entry.second) fclose(entry.second);
  }
  m_files.clear();
}

int LogManager::writeLine(FILE* p_f, int line_level, const char* fmt, va_list args) {
  if (line_level > m_log_level) return 0;
  if (!p_f) p_f = stderr;
  bool failed = false;
  if (m_log_time_string && fprintf(p_f, "%s ", getTimeString()) < 0) failed = true;
  if (m_log_step_count && fprintf(p_f, "%4d ", GameManager::getInstance().getStepCount()) < 0) failed = true;
  int count = vfprintf(p_f, fmt, args);
  if (count < 0) failed = true;
  if (fprintf(p_f, "\n") < 0) failed = true;
  if (m_do_flush) fflush(p_f);
  return failed ? -1 : count;
}

int LogManager::writeLog(const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  int result = writeLine(m_p_f, m_log_level, fmt, args);
  va_end(args);
  return result;
}

int LogManager::writeLog(int log_level, const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  int result = writeLine(m_p_f, log_level, fmt, args);
  va_end(args);
  return result;
}

FILE* LogManager::streamFor(const std::string& file_name) {
  if (file_name == Config::getInstance().getLogfile()) return m_p_f;
  auto found = m_files.find(file_name);
  if (found != m_files.end()) return found->second;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-extra-args"
  // Kept quirk: the intended text never made it into the format; the line names
  // only the function, as log readers know it.
  writeLog(LOG_DETAIL, "LogManager::writeMyLog()", "File %s is new.", file_name.c_str());
#pragma GCC diagnostic pop
  FILE* p_f = fopen(file_name.c_str(), "w");
  if (p_f) {
    m_files[file_name] = p_f;
  } else {
    writeLog("LogManager::startup(): Warning! Can't open file '%s'.\n", file_name.c_str());
  }
  return p_f;
}

int LogManager::writeMyLog(const std::string& file_name, int, const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  int result = writeLine(streamFor(file_name), m_log_level, fmt, args);
  va_end(args);
  return result;
}

int LogManager::writeMyLog(const std::string& file_name, const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  int result = writeLine(streamFor(file_name), m_log_level, fmt, args);
  va_end(args);
  return result;
}

void LogManager::setLogLevel(int log_level) {
  m_log_level = log_level;
  if (log_level >= LOG_NOTICE) writeLog("LogManager::setLogLevel(): log level %d", log_level);
}

void LogManager::setFlush(bool do_flush) {
  m_do_flush = do_flush;
  if (do_flush) flush();
}

void LogManager::flush() {
  if (m_p_f) fflush(m_p_f);
}

}  // namespace ot
