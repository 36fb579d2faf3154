#include "data/plain_scan.hpp"

#include <array>
#include <cstring>

#include "run/init.hpp"

namespace vardel {

namespace {

// Block size of the file reads.
constexpr std::size_t kBlock = 1 << 20;

enum CharClass : unsigned char { kToken, kBlank, kSpecial };

// Blank, tab and carriage return separate tokens; a comma, slash, quote or
// star may change the meaning of a free-form read, so the file is not plain.
constexpr std::array<unsigned char, 256> make_classes() {
  std::array<unsigned char, 256> t{};
  t[' '] = t['\t'] = t['\r'] = kBlank;
  t[','] = t['/'] = t['\''] = t['"'] = t['*'] = kSpecial;
  return t;
}
constexpr std::array<unsigned char, 256> kClass = make_classes();

unsigned char class_of(char c) {
  return kClass[static_cast<unsigned char>(c)];
}

// Calls on_token(begin, length) for each token of the line; false if the
// line holds a character that is not plain.
template <class OnToken>
bool split_line(std::string_view line, OnToken&& on_token) {
  const char* d = line.data();
  const std::size_t n = line.size();
  std::size_t p = 0;
  for (;;) {
    while (p < n && class_of(d[p]) == kBlank) ++p;
    if (p == n) return true;
    const std::size_t b = p;
    unsigned char c = 0;
    while (p < n && (c = class_of(d[p])) == kToken) ++p;
    if (p < n && c == kSpecial) return false;
    if (!on_token(d + b, p - b)) return true;  // the rest of the line is not wanted
  }
}

}  // namespace

// Calls on_line(line) for each record of the file, from its start, with a
// carriage return before the line end removed; stops early if on_line
// returns false. Returns false if stopped early.
template <class OnLine>
bool PlainScan::for_each_line(OnLine&& on_line) {
  in_.clear();
  in_.seekg(0);
  block_.resize(kBlock);
  carry_.clear();
  auto deliver = [&on_line](std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return on_line(line);
  };
  for (;;) {
    in_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
    const std::size_t got = static_cast<std::size_t>(in_.gcount());
    if (got == 0) break;
    const char* d = block_.data();
    std::size_t start = 0;
    for (;;) {
      const void* nl = std::memchr(d + start, '\n', got - start);
      if (!nl) break;
      const std::size_t end = static_cast<std::size_t>(static_cast<const char*>(nl) - d);
      bool go;
      if (!carry_.empty()) {
        carry_.append(d + start, end - start);
        go = deliver(carry_);
        carry_.clear();
      } else {
        go = deliver(std::string_view(d + start, end - start));
      }
      if (!go) return false;
      start = end + 1;
    }
    carry_.append(d + start, got - start);
  }
  // A last line without a line end; an empty one is no line.
  if (!carry_.empty() && !deliver(carry_)) return false;
  return true;
}

bool PlainScan::count(int width, PlainCount& out) {
  out = PlainCount{};
  long long need = 0;  // tokens still wanted by the read in progress
  return for_each_line([&](std::string_view line) {
    ++out.lines;
    bool line_done = false;  // a read ended on this line: the rest is dropped
    return split_line(line, [&](const char*, std::size_t) {
      ++out.tokens;
      if (line_done) return true;
      if (need == 0) need = width;
      if (--need == 0) {
        ++out.cases;
        line_done = true;
      }
      return true;
    });
  });
}

long long PlainScan::read(int width, long long cases, const CaseHandler& take) {
  const std::size_t w = static_cast<std::size_t>(width);
  std::vector<char> cells(w * kNameLen);
  std::vector<std::string_view> tokens(w);
  std::size_t have = 0;
  long long done = 0;
  if (cases <= 0) return 0;
  for_each_line([&](std::string_view line) {
    const std::size_t from = have;  // the tokens before it are held in cells
    split_line(line, [&](const char* b, std::size_t n) {
      tokens[have] = std::string_view(b, n < kNameLen ? n : kNameLen);
      if (++have < w) return true;
      take(tokens);
      have = 0;
      ++done;
      return false;  // the next read starts on a new line
    });
    // A read going on over the line end keeps its tokens of this line.
    for (std::size_t t = from; t < have; ++t) {
      char* cell = cells.data() + t * kNameLen;
      std::memcpy(cell, tokens[t].data(), tokens[t].size());
      tokens[t] = std::string_view(cell, tokens[t].size());
    }
    return done < cases;
  });
  return done;
}

}  // namespace vardel
