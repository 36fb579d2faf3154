// The free-form (list-directed) reading engine, shared by file and text reads.
//
// ListInput walks the records of a RecordSource and carries the position from
// one read statement to the next. Each read() is one statement: it starts on a
// new record (what was left of the previous one is dropped), fills its targets
// in order from values separated by blanks, commas and line ends, and goes on
// over line ends until every target has a value, a slash ends the statement,
// the file ends, or a token is not a value of its target's type.
//
// Values: r*c stands for r copies of c and r* for r empty values; an empty
// value (two commas, or a comma before the first value) leaves its target
// unchanged. Text values may be quoted with ' or " to hold blanks, commas and
// slashes, a doubled quote standing for one; a quoted value may run over line
// ends, which are dropped from it, and a file ending inside one ends the value.
//
// Characters: blank, tab and carriage return all separate values. A carriage
// return right before a line end belongs to the line end (files written with
// CR LF read as usual); elsewhere it counts as a blank, and inside quotes it is
// dropped. A semicolon is an ordinary character.
//
// Reading is linear: each record is fetched once into the source's buffer and
// scanned once; unquoted tokens are stored straight from it, and a plain text
// token on the current record takes a short path (the bulk of a data file).
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "numerics/read_target.hpp"

namespace vardel {

// Records (lines) read in order; the source strips the line end.
class RecordSource {
 public:
  virtual ~RecordSource() = default;
  // The next record in rec, valid until the next call; false when there is none.
  virtual bool next(std::string_view& rec) = 0;
};

class ListInput {
 public:
  explicit ListInput(RecordSource& src) : src_(src) {}
  ListInput(const ListInput&) = delete;
  ListInput& operator=(const ListInput&) = delete;

  // One list-directed read statement.
  ReadResult read(std::span<const ReadTarget> targets);
  // One read statement of `count` one-character text values that are not
  // kept: tells whether the file holds that many values from here.
  ReadResult skip_values(long long count);
  // One whole record into *rec (nullptr: discard it).
  ReadResult read_record(std::string* rec);
  // Back to the first record; the source must already have been rewound.
  void reset();
  long line() const { return line_no_; }

 private:
  enum class Item { value, null, end_of_file, bad };
  static constexpr int kEof = -1;        // no record left
  static constexpr int kRecordEnd = -2;  // at the end of the current record

  void begin_statement();
  ReadResult fill(const ReadTarget& t);
  int peek();
  void skip_blanks();
  void end_record() { have_ = false; }
  void eat_separator();
  bool finish_separator();
  bool plain_text(const ReadTarget& t);
  Item next_item(ReadTarget::Kind kind, std::string_view& value);
  Item read_value(ReadTarget::Kind kind, std::string_view& value);
  bool scan_quoted(std::string_view& value);
  std::string_view scan_plain();
  ReadResult fail(ReadStatus status, std::string_view token, long line);

  RecordSource& src_;
  std::string_view rec_;  // the current record
  std::size_t pos_ = 0;   // next character of rec_
  bool have_ = false;     // rec_ is current and its end not yet consumed
  long line_no_ = 0;      // records fetched so far
  std::string quoted_;    // value of the last quoted token, reused

  // State of the statement in progress.
  bool first_ = true;      // no item read yet
  bool complete_ = false;  // a slash ended the statement
  bool at_eol_ = false;    // the last separator ended with a line end
  bool comma_ = false;     // the last separator held a comma
  long repeat_left_ = 0;   // further copies of the last r*c (or r*) value
  bool repeat_null_ = false;
  ReadTarget::Kind repeat_kind_ = ReadTarget::Kind::text;
  std::string_view repeat_value_;
  std::string_view bad_token_;  // the offending token of an Item::bad
  long token_line_ = 0;         // line where the last token began
};

}  // namespace vardel
