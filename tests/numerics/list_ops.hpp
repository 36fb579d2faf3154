// Test helper: runs the read statements named in the reader fixtures (the
// same operations as tests/fixtures/listread/reads.f90) and prints the
// targets in the same form, so that the outputs compare line by line.
#pragma once

#include <bit>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "numerics/list_reader.hpp"

namespace vardel::testing_support {

inline const char* status_word(const ReadResult& r) {
  switch (r.status) {
    case ReadStatus::ok:
      return "ok";
    case ReadStatus::end_of_file:
      return "eof";
    case ReadStatus::bad_value:
      return "bad";
  }
  return "?";
}

// Runs ops (names as in reads.f90) on in and returns the printed lines.
inline std::string run_ops(ListReader& in, const std::vector<std::string>& ops) {
  std::ostringstream out;
  for (const std::string& op : ops) {
    std::int32_t i1 = -1111, i2 = -2222, i3 = -3333;
    std::int64_t k1 = -11111111111, k2 = -22222222222;
    double d1 = -1.25, d2 = -2.25, d3 = -3.25;
    float f1 = -1.5f, f2 = -2.5f;
    std::string a1 = "init1", a2 = "init2", a3 = "init3", l1 = "initlong", t3 = "ini";
    std::vector<std::string> c(5, "#");
    std::string rec = "initrec";
    auto status = [&](const ReadResult& r) { out << "op " << op << ' ' << status_word(r) << '\n'; };
    auto d = [&](double v) { out << "d " << std::bit_cast<std::int64_t>(v) << '\n'; };
    auto f = [&](float v) { out << "f " << std::bit_cast<std::int32_t>(v) << '\n'; };
    auto a = [&](const std::string& s) { out << "a [" << s << "]\n"; };
    if (op == "I3") {
      status(in.read({i1, i2, i3}));
      out << "i " << i1 << "\ni " << i2 << "\ni " << i3 << '\n';
    } else if (op == "K2") {
      status(in.read({k1, k2}));
      out << "k " << k1 << "\nk " << k2 << '\n';
    } else if (op == "D3") {
      status(in.read({d1, d2, d3}));
      d(d1);
      d(d2);
      d(d3);
    } else if (op == "F2") {
      status(in.read({f1, f2}));
      f(f1);
      f(f2);
    } else if (op == "DF") {
      status(in.read({d1, f1}));
      d(d1);
      f(f1);
    } else if (op == "A3") {
      status(in.read({text(a1, 21), text(a2, 21), text(a3, 21)}));
      a(a1);
      a(a2);
      a(a3);
    } else if (op == "A1") {
      status(in.read({text(a1, 21)}));
      a(a1);
    } else if (op == "L1") {
      status(in.read({text(l1, 80)}));
      a(l1);
    } else if (op == "IAT") {
      status(in.read({i1, text(a1, 21), text(t3, 3)}));
      out << "i " << i1 << '\n';
      a(a1);
      a(t3);
    } else if (op == "IDA") {
      status(in.read({i1, d1, text(a1, 21)}));
      out << "i " << i1 << '\n';
      d(d1);
      a(a1);
    } else if (op == "C5") {
      status(in.read({text(c[0], 1), text(c[1], 1), text(c[2], 1), text(c[3], 1), text(c[4], 1)}));
      for (const std::string& s : c) a(s);
    } else if (op == "REC") {
      status(in.read_record(rec));
      rec.erase(rec.find_last_not_of(' ') + 1);
      out << "r [" << rec << "]\n";
    } else if (op == "SKIP") {
      status(in.skip_record());
    } else if (op == "REW") {
      in.rewind();
      out << "op REW ok\n";
    } else {
      out << "unknown op " << op << '\n';
    }
  }
  return out.str();
}

}  // namespace vardel::testing_support
