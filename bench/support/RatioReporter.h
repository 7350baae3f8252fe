#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace ot_bench {

// The console report, remembering each benchmark's seconds per iteration, so
// that a program can print its figures as ratios measured in the same run.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
      m_time[run.benchmark_name()] = run.GetAdjustedRealTime() / unit;
      m_cpu_time[run.benchmark_name()] = run.GetAdjustedCPUTime() / unit;
    }
    ConsoleReporter::ReportRuns(runs);
  }
  // Seconds per iteration of the named benchmark; 0 when it didn't run.
  double seconds(const std::string& name) const {
    auto found = m_time.find(name);
    return found == m_time.end() ? 0 : found->second;
  }
  // CPU seconds per iteration of the named benchmark; 0 when it didn't run.
  double cpuSeconds(const std::string& name) const {
    auto found = m_cpu_time.find(name);
    return found == m_cpu_time.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> m_time;
  std::map<std::string, double> m_cpu_time;
};

}  // namespace ot_bench
