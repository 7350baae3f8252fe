#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ot_test {

// The path of this test process's log file, set by the engine fixtures
// through OSTREL_LOG; unique per process, so parallel test runs don't mix.
std::string testLogPath();

// The messages of a log file, each without its "hh:mm:ss step " prefix.
std::vector<std::string> readLogMessages(const std::string& path = testLogPath());

// The messages of the lines added to a log file since byte *p_offset, which
// moves past them; a line still being written waits for the next call.
std::vector<std::string> readNewLogMessages(size_t* p_offset, const std::string& path = testLogPath());

// Whether some message equals text exactly.
bool logHas(const std::vector<std::string>& messages, const std::string& text);

// How many messages equal text exactly.
int logCount(const std::vector<std::string>& messages, const std::string& text);

// Writes text to a fresh file in a temporary folder; its path.
std::string writeTempFile(const std::string& name, const std::string& text);

}  // namespace ot_test
