// The free-form reading engine (see list_input.hpp).
#include "numerics/list_input.hpp"

#include <array>
#include <cstdint>
#include <limits>

#include "numerics/list_number.hpp"

namespace vardel {
namespace {

enum CharClass : unsigned char { kOther, kBlank, kComma, kSlash };

constexpr std::array<unsigned char, 256> make_classes() {
  std::array<unsigned char, 256> t{};
  t[' '] = t['\t'] = t['\r'] = t['\n'] = kBlank;
  t[','] = kComma;
  t['/'] = kSlash;
  return t;
}
constexpr std::array<unsigned char, 256> kClass = make_classes();

unsigned char class_of(char c) {
  return kClass[static_cast<unsigned char>(c)];
}
bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// True for what may follow a value: a separator, a record end or the file end.
bool ends_value(int c) {
  return c < 0 || kClass[static_cast<unsigned>(c)] != kOther;
}

// Largest repeat count accepted. Guards against a mistyped count standing
// for hundreds of millions of copies.
constexpr long kMaxRepeat = 200000000;

// Stores v into text target t, cut or blank-padded to its length.
void store_text(const ReadTarget& t, std::string_view v) {
  std::string& s = t.as<std::string>();
  const std::size_t len = t.length();
  if (s.size() != len) s.resize(len);
  const std::size_t m = v.size() < len ? v.size() : len;
  char* out = s.data();
  for (std::size_t k = 0; k < m; ++k) out[k] = v[k];
  for (std::size_t k = m; k < len; ++k) out[k] = ' ';
}

// Stores the token v into target t; false if v is not a value of t's type.
bool store(const ReadTarget& t, std::string_view v) {
  std::int64_t k = 0;
  switch (t.kind()) {
    case ReadTarget::Kind::int32:
      if (!parse_list_integer(v, std::numeric_limits<std::int32_t>::min(),
                              std::numeric_limits<std::int32_t>::max(), k))
        return false;
      t.as<std::int32_t>() = static_cast<std::int32_t>(k);
      return true;
    case ReadTarget::Kind::int64:
      if (!parse_list_integer(v, std::numeric_limits<std::int64_t>::min(),
                              std::numeric_limits<std::int64_t>::max(), k))
        return false;
      t.as<std::int64_t>() = k;
      return true;
    case ReadTarget::Kind::real64:
      return parse_list_real(v, t.as<double>());
    case ReadTarget::Kind::real32:
      return parse_list_real(v, t.as<float>());
    case ReadTarget::Kind::text:
      store_text(t, v);
      return true;
  }
  return false;
}

}  // namespace

int ListInput::peek() {
  if (!have_) {
    if (!src_.next(rec_)) return kEof;
    have_ = true;
    pos_ = 0;
    ++line_no_;
  }
  return pos_ < rec_.size() ? static_cast<unsigned char>(rec_[pos_]) : kRecordEnd;
}

void ListInput::skip_blanks() {
  if (peek() < 0) return;
  std::size_t p = pos_;
  while (p < rec_.size() && class_of(rec_[p]) == kBlank) ++p;
  pos_ = p;
}

// Moves pos_ past the characters of an unquoted token; returns the token.
std::string_view ListInput::scan_plain() {
  const std::size_t b = pos_;
  std::size_t p = b;
  while (p < rec_.size() && class_of(rec_[p]) == kOther) ++p;
  pos_ = p;
  return rec_.substr(b, p - b);
}

// Consumes the separator after an item: blanks, then at most one comma (with
// the blanks and a line end after it), or a slash, or a line end.
void ListInput::eat_separator() {
  at_eol_ = false;
  comma_ = false;
  skip_blanks();
  const int c = peek();
  if (c == ',') {
    ++pos_;
    comma_ = true;
    skip_blanks();
    if (peek() == kRecordEnd) {
      end_record();
      at_eol_ = true;
    }
  } else if (c == '/') {
    ++pos_;
    complete_ = true;
  } else if (c == kRecordEnd) {
    end_record();
    at_eol_ = true;
  }
}

// After a separator that ended with a line end: passes over blank lines, and
// over a comma that starts a line when no comma came before the line end (a
// comma followed by a line end again restarts this). A further comma is left
// to make an empty value. False at the end of the file.
bool ListInput::finish_separator() {
  for (;;) {
    skip_blanks();
    const int c = peek();
    if (c == kEof) return false;
    if (c == kRecordEnd) {
      end_record();
      continue;
    }
    if (c == ',') {
      if (comma_) return true;
      ++pos_;
      skip_blanks();
      if (peek() == kRecordEnd) {
        end_record();
        continue;
      }
    } else if (c == '/') {
      ++pos_;
      complete_ = true;
    }
    return true;
  }
}

// The common case of a data file, taken before next_item: an unquoted text
// token without a star, further on the current record, after a separator
// without a line end. Stores it and returns true; false leaves everything to
// the general path.
bool ListInput::plain_text(const ReadTarget& t) {
  if (first_ || at_eol_ || complete_ || repeat_left_ > 0 || !have_) return false;
  const char* d = rec_.data();
  const std::size_t n = rec_.size();
  std::size_t p = pos_;
  while (p < n && class_of(d[p]) == kBlank) ++p;
  const std::size_t b = p;
  if (p == n || d[p] == '\'' || d[p] == '"') return false;
  while (p < n && class_of(d[p]) == kOther && d[p] != '*') ++p;
  if (p == b || (p < n && d[p] == '*')) return false;
  pos_ = p;
  token_line_ = line_no_;
  store_text(t, std::string_view(d + b, p - b));
  eat_separator();
  return true;
}

ListInput::Item ListInput::next_item(ReadTarget::Kind kind, std::string_view& value) {
  if (repeat_left_ > 0) {
    --repeat_left_;
    if (repeat_null_) return Item::null;
    if (kind != repeat_kind_) {  // one repeated value serves one type only
      bad_token_ = repeat_value_;
      return Item::bad;
    }
    value = repeat_value_;
    return Item::value;
  }
  if (complete_) return Item::null;
  if (first_) {
    first_ = false;
    skip_blanks();
    const int c = peek();
    if (c == kEof) return Item::end_of_file;
    if (c == ',' || c == '/') {
      eat_separator();
      return Item::null;
    }
    if (c == kRecordEnd) {  // blank first lines
      eat_separator();
      if (!finish_separator()) return Item::end_of_file;
      if (complete_) return Item::null;
    }
  } else if (at_eol_) {
    if (!finish_separator()) return Item::end_of_file;
    if (complete_) return Item::null;
  } else {
    skip_blanks();
  }
  return read_value(kind, value);
}

ListInput::Item ListInput::read_value(ReadTarget::Kind kind, std::string_view& value) {
  int c = peek();
  if (c == kEof) return Item::end_of_file;
  if (c == ',' || c == '/' || c == kRecordEnd) {
    eat_separator();
    return Item::null;
  }
  token_line_ = line_no_;

  // Repeat count: digits and a star.
  long count = 0;
  std::size_t p = pos_;
  while (p < rec_.size() && is_digit(rec_[p])) ++p;
  if (p > pos_ && p < rec_.size() && rec_[p] == '*') {
    for (std::size_t k = pos_; k < p && count <= kMaxRepeat; ++k)
      count = count * 10 + (rec_[k] - '0');
    if (count == 0 || count > kMaxRepeat) {
      bad_token_ = scan_plain();
      return Item::bad;
    }
    pos_ = p + 1;
    if (ends_value(peek())) {  // r* alone: r empty values
      repeat_left_ = count - 1;
      repeat_null_ = true;
      eat_separator();
      return Item::null;
    }
  }

  c = peek();
  if (kind == ReadTarget::Kind::text && (c == '\'' || c == '"')) {
    if (!scan_quoted(value)) return Item::bad;
  } else {
    value = scan_plain();
  }
  if (count > 0) {
    repeat_left_ = count - 1;
    repeat_null_ = false;
    repeat_kind_ = kind;
    repeat_value_ = value;
  }
  eat_separator();
  return Item::value;
}

// A quoted text value, from the opening quote under pos_. The value is built in
// quoted_. False if the closing quote is followed by more than a separator.
bool ListInput::scan_quoted(std::string_view& value) {
  const char quote = rec_[pos_++];
  quoted_.clear();
  for (;;) {
    const int c = peek();
    if (c == kEof) break;  // the file ends the value
    if (c == kRecordEnd) {
      end_record();
      continue;
    }
    ++pos_;
    if (c == quote) {
      if (peek() != quote) break;
      ++pos_;  // a doubled quote stands for one
    } else if (c == '\r' || c == '\n') {
      continue;
    }
    quoted_.push_back(static_cast<char>(c));
  }
  value = quoted_;
  if (ends_value(peek())) return true;
  quoted_.append(scan_plain());
  bad_token_ = quoted_;
  return false;
}

ReadResult ListInput::fail(ReadStatus status, std::string_view token, long line) {
  ReadResult r;
  r.status = status;
  r.token.assign(token);
  r.line = line;
  return r;
}

void ListInput::begin_statement() {
  end_record();  // a statement starts on a new record
  first_ = true;
  complete_ = false;
  at_eol_ = false;
  comma_ = false;
  repeat_left_ = 0;
}

// Fills one target with the next value of the statement in progress; a null
// value leaves it unchanged. Returns ok, or the failure that ends the statement.
ReadResult ListInput::fill(const ReadTarget& t) {
  if (t.kind() == ReadTarget::Kind::text && plain_text(t)) return {};
  std::string_view v;
  switch (next_item(t.kind(), v)) {
    case Item::null:
      return {};
    case Item::end_of_file:
      return fail(ReadStatus::end_of_file, {}, line_no_);
    case Item::bad:
      return fail(ReadStatus::bad_value, bad_token_, token_line_);
    case Item::value:
      break;
  }
  if (!store(t, v)) return fail(ReadStatus::bad_value, v, token_line_);
  return {};
}

ReadResult ListInput::read(std::span<const ReadTarget> targets) {
  begin_statement();
  for (const ReadTarget& t : targets)
    if (t.kind() == ReadTarget::Kind::text && t.as<std::string>().size() != t.length())
      t.as<std::string>().resize(t.length(), ' ');

  for (const ReadTarget& t : targets)
    if (ReadResult r = fill(t); !r) return r;
  ReadResult r;
  r.line = line_no_;
  return r;
}

ReadResult ListInput::skip_values(long long count) {
  // The same statement as read() over `count` targets of one character,
  // without building the list of targets.
  std::string scratch(1, ' ');
  const ReadTarget target = text(scratch, 1);
  begin_statement();
  for (long long k = 0; k < count; ++k)
    if (ReadResult r = fill(target); !r) return r;
  ReadResult r;
  r.line = line_no_;
  return r;
}

ReadResult ListInput::read_record(std::string* rec) {
  end_record();
  if (peek() == kEof) return fail(ReadStatus::end_of_file, {}, line_no_);
  if (rec) rec->assign(rec_);
  end_record();
  ReadResult r;
  r.line = line_no_;
  return r;
}

void ListInput::reset() {
  have_ = false;
  line_no_ = 0;
}

}  // namespace vardel
