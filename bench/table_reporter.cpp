#include "table_reporter.h"

#include <algorithm>

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) {
      continue;
    }
    const std::string& name = run.run_name.function_name;
    const std::size_t bar = name.find('|');
    const std::string operation = name.substr(0, bar);
    if (!m_rows.contains(operation)) {
      m_order.push_back(operation);
    }
    Cell& cell = m_rows[operation][name.substr(bar + 1)];
    cell.nanoseconds = std::min(cell.nanoseconds, run.GetAdjustedCPUTime());
    if (const auto bytes = run.counters.find("bytes"); bytes != run.counters.end()) {
      cell.bytes = bytes->second;
    }
  }
}

void TableReporter::Finalize() {
  std::sort(m_order.begin(), m_order.end());
  constexpr const char* kSides[] = {"floor",   "ours", "plain",    "checked", "naive",
                                    "aligned", "glm",  "glm simd", "eigen"};
  std::printf("%-74s", "");
  for (const char* side : kSides) {
    std::printf("%9s", side);
  }
  std::printf("%9s%9s%9s\n", "bytes", "floor's", "ratio");
  for (const std::string& operation : m_order) {
    auto& row = m_rows[operation];
    std::printf("%-74s", operation.c_str());
    for (const char* side : kSides) {
      if (row.contains(side)) {
        std::printf("%9.1f", row[side].nanoseconds);
      } else {
        std::printf("%9s", "");
      }
    }
    if (row.contains("ours") && row["ours"].bytes >= 0) {
      std::printf("%9.0f%9.0f", row["ours"].bytes, row.contains("floor") ? row["floor"].bytes : -1.0);
    } else {
      std::printf("%18s", "");
    }
    double best = std::numeric_limits<double>::infinity();
    for (const char* side : {"floor", "glm", "glm simd", "eigen"}) {
      if (row.contains(side)) {
        best = std::min(best, row[side].nanoseconds);
      }
    }
    if (row.contains("ours") && best < 1e9) {
      std::printf("%9.2f", row["ours"].nanoseconds / best);
    }
    std::printf("\n");
  }
}
