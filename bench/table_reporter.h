/// Prints what Google Benchmark measures as a row an operation and a column a side: the least time of all repetitions,
/// which is what a busy machine disturbs least.
#pragma once

#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// A benchmark is named "OPERATION|SIDE".
class TableReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override;
  void Finalize() override;

 private:
  struct Cell {
    double nanoseconds = std::numeric_limits<double>::infinity();
    double bytes = -1;
  };
  std::map<std::string, std::map<std::string, Cell>> m_rows;
  std::vector<std::string> m_order;
};
