// Reads tests/fixtures/distrib/reference_values.txt (made by make_reference.py
// beside it): rows of a tag followed by numbers, or by a name and numbers for
// the "companion" rows. Also the relative error the distribution tests use.
#pragma once

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace vardel::testing_distrib {

struct Row {
  std::string name;       // companion rows only: which routine
  std::vector<double> v;  // the numbers of the row, in file order
};

inline std::vector<Row> reference_rows(const std::string& tag) {
  std::ifstream in(VARDEL_FIXTURE_DIR "/distrib/reference_values.txt");
  std::vector<Row> rows;
  std::string line;
  while (std::getline(in, line)) {
    std::istringstream fields(line);
    std::string first;
    if (!(fields >> first) || first != tag) continue;
    Row row;
    if (tag == "companion") fields >> row.name;
    double value;
    while (fields >> value) row.v.push_back(value);
    rows.push_back(row);
  }
  return rows;
}

inline double rel_err(double got, double want) {
  return want == 0.0 ? std::fabs(got) : std::fabs(got - want) / std::fabs(want);
}

// Values below this have lost relative precision to gradual underflow (or are
// 0); they are compared absolutely.
constexpr double kTinyValue = 1e-280;

inline bool agrees(double got, double want, double rel_tol) {
  if (std::fabs(want) < kTinyValue) return std::fabs(got - want) <= kTinyValue;
  return rel_err(got, want) <= rel_tol;
}

}  // namespace vardel::testing_distrib
