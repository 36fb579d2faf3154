// BatchFile: the file of answers written in batch-file mode (menu answer 2).
//
// One answer a line, in the order the dialogue asks its questions, so that
// feeding the file to standard input replays the run.
#pragma once

#include <fstream>
#include <string>
#include <string_view>

namespace vardel {

class BatchFile {
 public:
  // Opens the file; with replace false an existing file is refused.
  bool open(std::string_view name, bool replace);
  bool is_open() const { return out_.is_open(); }
  void close() { out_.close(); }
  const std::string& name() const { return name_; }

  void write_choice(int answer);   // "(i1)"
  void write_value(double value);  // list-directed, left-adjusted, trimmed
  void write_value(int value);
  void write_line(std::string_view text);                     // "(a)"
  void write_name_and_overwrite(std::string_view file_name);  // name, then "1"

 private:
  std::ofstream out_;
  std::string name_;
};

}  // namespace vardel
