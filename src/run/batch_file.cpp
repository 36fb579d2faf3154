#include "run/batch_file.hpp"

#include <cstdio>

#include "numerics/format.hpp"

namespace vardel {

namespace {

std::string list_value_text(const FmtItem& item) {
  std::string s = list_directed({item});
  while (!s.empty() && (s.back() == '\n' || s.back() == ' ')) s.pop_back();
  return std::string(trim(adjustl(s)));
}

}  // namespace

bool BatchFile::open(std::string_view name, bool replace) {
  const std::string path(trim(name));
  if (!replace) {
    // Create only if absent: an existing file (or one that cannot be made) is refused.
    std::FILE* f = std::fopen(path.c_str(), "wx");
    if (f == nullptr) return false;
    std::fclose(f);
  }
  out_.open(path, std::ios::trunc);
  name_ = path;
  return out_.is_open();
}

void BatchFile::write_choice(int answer) {
  write_fmt(out_, "(i1)", {answer});
}

void BatchFile::write_value(double value) {
  write_line(list_value_text(value));
}

void BatchFile::write_value(int value) {
  write_line(list_value_text(value));
}

void BatchFile::write_line(std::string_view text) {
  write_fmt(out_, "(a)", {text});
}

void BatchFile::write_name_and_overwrite(std::string_view file_name) {
  write_fmt(out_, "(a,/,a)", {trim(file_name), "1"});
}

}  // namespace vardel
