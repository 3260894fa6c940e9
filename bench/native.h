/// Native code alone, beside GLM and Eigen.
#pragma once

#include <string>

/// Registers those whose name holds the filter.
void add_native_benchmarks(const std::string& filter);
