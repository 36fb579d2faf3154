// Parses edit-descriptor formats (see format.hpp for the descriptors) into
// FormatOp lists, and caches the results per thread.
//
// Blanks outside literals are skipped everywhere, even inside numbers, and
// letters are read case-blind. A comma separates items; it may be left out
// next to '/', ':' or a literal.
#include <functional>
#include <stdexcept>
#include <unordered_map>

#include "numerics/decimal_digits.hpp"
#include "numerics/format_parse.hpp"

namespace vardel {
namespace {

// Guards widths and counts against absurd values (and int overflow).
constexpr int kMaxCount = 1'000'000;

class Parser {
 public:
  explicit Parser(std::string_view fmt) : fmt_(fmt) {}
  ParsedFormat run();

 private:
  [[noreturn]] void fail(const char* why) const {
    throw std::logic_error("malformed format \"" + std::string(fmt_) + "\": " + why);
  }
  // Next non-blank character, lower-cased, or '\0' at the end.
  char peek() {
    while (pos_ < fmt_.size() && fmt_[pos_] == ' ') ++pos_;
    if (pos_ == fmt_.size()) return '\0';
    char c = fmt_[pos_];
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
  }
  bool digit_next() {
    char c = peek();
    return c >= '0' && c <= '9';
  }
  int number();
  std::string literal();
  void descriptor(FormatOp& op);

  std::string_view fmt_;
  std::size_t pos_ = 0;
};

int Parser::number() {
  if (!digit_next()) fail("number expected");
  int v = 0;
  while (digit_next()) {
    v = v * 10 + (fmt_[pos_++] - '0');
    if (v > kMaxCount) fail("number too large");
  }
  return v;
}

// A quoted literal starting at pos_; a doubled quote inside stands for one.
std::string Parser::literal() {
  const char q = fmt_[pos_++];
  std::string text;
  for (;;) {
    if (pos_ == fmt_.size()) fail("unterminated literal");
    char c = fmt_[pos_++];
    if (c == q) {
      if (pos_ < fmt_.size() && fmt_[pos_] == q) {
        ++pos_;
      } else {
        return text;
      }
    }
    text += c;
  }
}

// The width and decimals of a value descriptor whose letter has been read.
void Parser::descriptor(FormatOp& op) {
  using C = FormatOp::Code;
  if (op.code == C::a) {
    if (digit_next()) {
      op.w = number();
      if (op.w == 0) fail("zero width");
    }
    return;
  }
  if (!digit_next()) fail("field width expected");
  op.w = number();
  if (op.w == 0) fail("zero width");
  if (op.code == C::i) {
    if (peek() == '.') {
      ++pos_;
      op.d = number();
    }
    return;
  }
  if (peek() != '.') fail("decimals expected");
  ++pos_;
  op.d = number();
  if (op.d > kMaxDigits) fail("too many decimals");
  if (op.d == 0 && op.code == C::e) fail("e needs at least one digit");
}

ParsedFormat Parser::run() {
  using C = FormatOp::Code;
  ParsedFormat pf;
  auto& ops = pf.ops;
  if (peek() != '(') fail("must begin with '('");
  ++pos_;
  ops.push_back({C::open});
  std::vector<std::size_t> opens{0};
  std::size_t last_top_group = 0;
  bool list_start = true;  // just after '(' or ','
  bool loose = true;       // the previous item needs no comma after it

  while (!opens.empty()) {
    char c = peek();
    if (c == '\0') fail("missing ')'");
    if (c == ',') {
      if (list_start) fail("misplaced comma");
      ++pos_;
      list_start = loose = true;
      continue;
    }
    if (c == ')') {
      if (list_start && ops.back().code != C::open) fail("')' after a comma");
      ++pos_;
      const std::size_t open = opens.back();
      opens.pop_back();
      ops[open].link = ops.size();
      ops.push_back({C::close});
      ops.back().link = open;
      if (opens.size() == 1) last_top_group = open;
      list_start = false;
      loose = false;
      continue;
    }

    const bool self_delimiting = c == '/' || c == ':' || c == '\'' || c == '"';
    if (!list_start && !loose && !self_delimiting) fail("missing comma");
    list_start = false;
    loose = self_delimiting;

    if (c == '\'' || c == '"') {
      FormatOp op{C::literal};
      op.text = literal();
      ops.push_back(std::move(op));
      continue;
    }
    int r = -1;
    if (digit_next()) {
      r = number();
      if (r == 0) fail("zero repeat count");
    }
    c = peek();
    FormatOp op{C::open};
    op.repeat = r < 0 ? 1 : r;
    switch (c) {
      case '(':
        ++pos_;
        opens.push_back(ops.size());
        ops.push_back(op);
        list_start = true;
        continue;
      case 'i':
        op.code = C::i;
        break;
      case 'f':
        op.code = C::f;
        break;
      case 'e':
        op.code = C::e;
        break;
      case 'g':
        op.code = C::g;
        break;
      case 'a':
        op.code = C::a;
        break;
      case 'x':
        op.code = C::x;
        op.w = op.repeat;  // the count of nx is the number of blanks
        op.repeat = 1;
        break;
      case '/':
        op.code = C::slash;
        break;
      case ':':
        if (r >= 0) fail("count before ':'");
        op.code = C::colon;
        break;
      case '\'':
      case '"':
        fail("count before a literal");
      default:
        fail("unknown descriptor");
    }
    ++pos_;
    if (op.is_value()) descriptor(op);
    ops.push_back(std::move(op));
  }
  if (peek() != '\0') fail("text after the closing ')'");

  if (last_top_group != 0) pf.reversion = last_top_group;
  for (std::size_t k = pf.reversion; k < ops.size(); ++k)
    if (ops[k].is_value()) pf.reversion_takes_items = true;
  return pf;
}

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
};

// Entries kept before the cache starts afresh; a run uses a few dozen formats.
constexpr std::size_t kCacheEntries = 256;

}  // namespace

ParsedFormat parse_format(std::string_view fmt) {
  return Parser(fmt).run();
}

const ParsedFormat& cached_format(std::string_view fmt) {
  thread_local std::unordered_map<std::string, ParsedFormat, TextHash, std::equal_to<>> cache;
  if (auto it = cache.find(fmt); it != cache.end()) return it->second;
  if (cache.size() >= kCacheEntries) cache.clear();
  return cache.emplace(std::string(fmt), parse_format(fmt)).first->second;
}

}  // namespace vardel
