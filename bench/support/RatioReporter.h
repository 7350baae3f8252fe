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
      m_time[run.benchmark_name()] =
          run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
      m_cpu_time[run.benchmark_name()] =
          run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }
    ConsoleReporter::ReportRuns(runs);
  }
  // Seconds per iteration of the named benchmark; 0 when it didn't run.
  double seconds(const std::string& name) const { return lookUp(m_time, name); }
  // The same in CPU time: steadier for one thread on a machine that others share.
  double cpuSeconds(const std::string& name) const { return lookUp(m_cpu_time, name); }

 private:
  static double lookUp(const std::map<std::string, double>& times, const std::string& name) {
    auto found = times.find(name);
    return found == times.end() ? 0 : found->second;
  }

  std::map<std::string, double> m_time;
  std::map<std::string, double> m_cpu_time;
};

}  // namespace ot_bench
