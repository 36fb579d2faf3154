// Free-form (list-directed) reading of input files, answers and text.
//
// ListReader reads a stream record by record; each read() is one read
// statement over the targets given, with the rules of ListInput
// (list_input.hpp). Typical uses:
//
//   ListReader in(file);
//   std::string name;
//   int code;
//   ReadResult r = in.read({code, text(name, 21)});
//   if (r.status == ReadStatus::end_of_file) ...   // no more records
//   if (r.status == ReadStatus::bad_value) ...     // r.token on line r.line
//
// read_list() reads from a text as from a file of one record (an answer typed
// at a prompt). read_int_field() reads an integer from a fixed-width field.
#pragma once

#include <initializer_list>
#include <istream>
#include <span>
#include <string>
#include <string_view>

#include "numerics/list_input.hpp"
#include "numerics/read_int_field.hpp"
#include "numerics/read_target.hpp"

namespace vardel {

// Lines of a stream, read through one reused buffer.
class StreamRecords : public RecordSource {
 public:
  explicit StreamRecords(std::istream& in) : in_(in) {}
  bool next(std::string_view& rec) override;

 private:
  std::istream& in_;
  std::string buf_;
};

class ListReader {
 public:
  explicit ListReader(std::istream& in) : records_(in), input_(records_), in_(in) {}

  // One read statement.
  ReadResult read(std::initializer_list<ReadTarget> targets) {
    return input_.read(std::span<const ReadTarget>(targets.begin(), targets.size()));
  }
  ReadResult read(std::span<const ReadTarget> targets) { return input_.read(targets); }

  // One read statement of `count` values that are not kept.
  ReadResult skip_values(long long count) { return input_.skip_values(count); }
  // The next whole record, as it stands (the caller cuts it to length).
  ReadResult read_record(std::string& line) { return input_.read_record(&line); }
  // Reads one record and discards it.
  ReadResult skip_record() { return input_.read_record(nullptr); }

  // Back to the first line (for files).
  void rewind();
  // Lines consumed so far.
  long line() const { return input_.line(); }

 private:
  StreamRecords records_;
  ListInput input_;
  std::istream& in_;
};

// A list-directed read from a text, as from a file of one record.
ReadResult read_list(std::string_view text, std::initializer_list<ReadTarget> targets);
ReadResult read_list(std::string_view text, std::span<const ReadTarget> targets);

}  // namespace vardel
