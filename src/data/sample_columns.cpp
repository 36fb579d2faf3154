#include "data/sample_columns.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "data/case_reading.hpp"
#include "data/input_failure.hpp"
#include "numerics/format.hpp"
#include "numerics/list_number.hpp"
#include "numerics/list_reader.hpp"

namespace vardel {

namespace {

std::string_view trim_left(std::string_view s) {
  const std::size_t first = s.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : s.substr(first);
}

// A token that a free-form read takes as one value by itself: no separator,
// no slash and no repeat star. Its number is then parse_list_real's.
bool single_value(std::string_view s) {
  if (s.empty()) return false;
  for (char c : s) {
    switch (c) {
      case ' ':
      case '\t':
      case '\r':
      case '\n':
      case ',':
      case '/':
      case '*':
        return false;
      default:
        break;
    }
  }
  return true;
}

// Exact powers of ten: every one up to 1e22 is a double without rounding.
constexpr double kPow10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                             1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Largest digit count of a mantissa held exactly: 10^15 < 2^53.
constexpr int kExactDigits = 15;

// A short plain decimal, [-]digits[.digits] with at most 15 digits: its
// digits as an integer and its decimals are exact doubles, so one division
// gives the correctly rounded value, the one parse_list_real gives.
bool short_decimal(std::string_view token, double& out) {
  std::size_t i = 0;
  const std::size_t n = token.size();
  const bool negative = n > 0 && token[0] == '-';
  if (negative) ++i;
  long long m = 0;
  int digits = 0;
  int decimals = 0;
  bool point = false;
  for (; i < n; ++i) {
    const char c = token[i];
    if (c >= '0' && c <= '9') {
      m = m * 10 + (c - '0');
      decimals += point;
      if (++digits > kExactDigits) return false;
    } else if (c == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  if (digits == 0) return false;
  // The sign goes on by its bit: a branch on it would be mispredicted on
  // data of mixed signs.
  const double v = static_cast<double>(m) / kPow10[decimals];
  out = std::bit_cast<double>(std::bit_cast<std::uint64_t>(v) |
                              (static_cast<std::uint64_t>(negative) << 63));
  return true;
}

// The number of a one-value token, as parse_list_real gives it. Another plain
// decimal number goes straight to from_chars, which rounds correctly as
// parse_list_real does; every other form, and a number out of range, is left
// to parse_list_real.
bool token_number(std::string_view token, double& out) {
  const char* b = token.data();
  const char* e = b + token.size();
  const char* d = (b != e && *b == '-') ? b + 1 : b;
  if (d != e && *d >= '0' && *d <= '9') {
    double v = 0.0;
    const auto r = std::from_chars(b, e, v);
    if (r.ec == std::errc{} && r.ptr == e) {
      out = v;
      return true;
    }
  }
  return parse_list_real(token, out);
}

// Marks a missing categorical value in the table until the codes are known.
constexpr double kMissingCategory = -1.0;

}  // namespace

// The texts of one categorical predictor, by code.
struct SampleColumns::Category {
  TextCodes codes;  // learning sample: texts without trailing blanks
  TextIndex known;  // test sample: the learning sample's labels
  int zero = 0;     // code of the text "0", 0 if none
};

// A case whose numerical tokens need the full free-form reader.
struct SampleColumns::OddCase {
  int row;
  std::vector<std::string> tokens;  // numerical tokens, adjusted left and trimmed
};

SampleColumns::Part::Part() = default;
SampleColumns::Part::Part(Part&&) noexcept = default;
SampleColumns::Part& SampleColumns::Part::operator=(Part&&) noexcept = default;
SampleColumns::Part::~Part() = default;

SampleColumns::SampleColumns(const Init& in, int capacity, bool known_categories, FArray<double>& x,
                             FArray<char>& misind)
    : in_(in),
      x_(x),
      misind_(misind),
      misskey_(text_key(in.misscode)),
      known_(known_categories),
      capacity_(capacity) {
  x_.assign(capacity, in.nvar, 0.0);
  misind_.assign(capacity, in.nvar, 'n');
  catindex_.assign(static_cast<std::size_t>(in.nvar) + 1, 0);
  for (int k = 1; k <= in.ncat; ++k) {
    catindex_[static_cast<std::size_t>(in.catpos(k))] = k;
    auto cat = std::make_unique<Category>();
    if (known_) {
      for (int j = 1; j <= in.numcat(k); ++j) {
        const std::string_view text = text_key(in.catlabel(k, j));
        cat->known.try_emplace(std::string(text), j);
        if (text == "0") cat->zero = j;
      }
    }
    categories_.push_back(std::move(cat));
  }
  whole_ = part(0);
}

SampleColumns::~SampleColumns() = default;

SampleColumns::Part SampleColumns::part(long long first) const {
  Part p;
  p.first_ = first;
  if (!known_) p.categories_.resize(static_cast<std::size_t>(in_.ncat));
  return p;
}

void SampleColumns::add(Part& part, std::span<const std::string_view> predictors) {
  const int i = ++part.cases_;  // the case within the part
  const std::ptrdiff_t row = part.first_ + i;
  bool any_missing = false;
  bool odd = false;
  for (int j = 1; j <= in_.nvar; ++j) {
    const std::string_view key = text_key(predictors[static_cast<std::size_t>(j - 1)]);
    const int k = catindex_[static_cast<std::size_t>(j)];
    double& cell = x_(row, j);
    if (key == misskey_) {
      misind_(row, j) = 'y';
      any_missing = true;
      cell = k > 0 ? kMissingCategory : 0.0;
    } else if (k > 0) {
      if (known_) {
        const TextIndex& known = categories_[static_cast<std::size_t>(k - 1)]->known;
        const auto it = known.find(key);
        cell = it != known.end() ? it->second : 0;
      } else {
        cell = part.categories_[static_cast<std::size_t>(k - 1)].find_or_add(key);
      }
    } else if (short_decimal(key, cell)) {
      // the common case: a plain decimal of a few digits
    } else if (const std::string_view token = trim_left(key); !single_value(token)) {
      odd = true;
    } else if (!token_number(token, cell) && part.bad_case_ == 0) {
      part.bad_case_ = i;
      part.bad_token_ = token;
    }
  }
  part.missing_ += any_missing;
  if (!odd) return;
  // The case is read again whole at the end; a failure found above may not
  // be the one that reading meets first.
  if (part.bad_case_ == i) part.bad_case_ = 0;
  OddCase c{i, std::vector<std::string>(static_cast<std::size_t>(in_.nvar))};
  for (int j = 1; j <= in_.nvar; ++j) {
    if (catindex_[static_cast<std::size_t>(j)] > 0) continue;
    c.tokens[static_cast<std::size_t>(j - 1)] =
        misind_(row, j) == 'y'
            ? std::string("0")
            : std::string(trim_left(text_key(predictors[static_cast<std::size_t>(j - 1)])));
  }
  part.odd_.push_back(std::move(c));
}

void SampleColumns::merge(Part& part) {
  const std::ptrdiff_t from = part.first_;
  const std::ptrdiff_t to = cases_;
  const std::ptrdiff_t n = part.cases_;
  // The part's codes of categories become the sample's, new texts numbered
  // after those of the parts before it in the order the part met them.
  std::vector<double> code;
  for (std::size_t k = 0; k < part.categories_.size(); ++k) {
    Category& cat = *categories_[k];
    const std::vector<std::string>& texts = part.categories_[k].texts();
    code.assign(texts.size() + 1, 0.0);
    bool same = true;
    for (std::size_t c = 1; c <= texts.size(); ++c) {
      const std::string& text = texts[c - 1];
      int g = cat.codes.find(text);
      if (g == 0) {
        g = cat.codes.add(text);
        if (text == "0") cat.zero = g;
      }
      code[c] = g;
      same = same && g == static_cast<int>(c);
    }
    if (same) continue;
    const int j = in_.catpos(static_cast<int>(k) + 1);
    for (std::ptrdiff_t i = from + 1; i <= from + n; ++i) {
      double& cell = x_(i, j);
      if (cell != kMissingCategory) cell = code[static_cast<std::size_t>(cell)];
    }
  }
  if (from != to && n > 0) {
    for (int j = 1; j <= in_.nvar; ++j) {
      const auto xs = x_.column(j);
      const auto ms = misind_.column(j);
      std::copy_n(xs.begin() + from, n, xs.begin() + to);
      std::copy_n(ms.begin() + from, n, ms.begin() + to);
    }
  }
  for (OddCase& c : part.odd_) {
    c.row += static_cast<int>(to);
    odd_.push_back(std::move(c));
  }
  if (bad_case_ == 0 && part.bad_case_ != 0) {
    bad_case_ = static_cast<int>(to) + part.bad_case_;
    bad_token_ = part.bad_token_;
  }
  cases_ += part.cases_;
  cases_missing_ += part.missing_;
  part = Part();
}

void SampleColumns::close() {
  if (whole_.cases() > 0) merge(whole_);
  if (cases_ == capacity_) return;
  x_.keep_rows(cases_);
  misind_.keep_rows(cases_);
  capacity_ = cases_;
}

void SampleColumns::clear_never_observed() {
  for (int j = 1; j <= in_.nvar; ++j) {
    const auto flags = misind_.column(j);
    if (cases_ == 0 || std::find(flags.begin(), flags.end(), 'n') != flags.end()) continue;
    std::fill(flags.begin(), flags.end(), 'n');
    // Its tokens all read "0", now a category present in every case.
    if (const int k = catindex_[static_cast<std::size_t>(j)]; k > 0) {
      Category& cat = *categories_[static_cast<std::size_t>(k - 1)];
      cat.codes = TextCodes();
      cat.zero = cat.codes.add("0");
    }
  }
}

void SampleColumns::store_categories(Init& in) const {
  in.numcat.assign(in.ncat, 0);
  for (int k = 1; k <= in.ncat; ++k)
    in.numcat(k) = categories_[static_cast<std::size_t>(k - 1)]->codes.size();
  const int maxcat = std::max(1, in.largest_numcat());
  in.catlabel.assign(in.ncat, maxcat, std::string(kNameLen, ' '));
  for (int k = 1; k <= in.ncat; ++k) {
    const auto& texts = categories_[static_cast<std::size_t>(k - 1)]->codes.texts();
    for (std::size_t j = 0; j < texts.size(); ++j)
      in.catlabel(k, static_cast<int>(j) + 1) = fixed_text(texts[j], kNameLen);
  }
}

void SampleColumns::finish(std::string_view file) {
  for (int k = 1; k <= in_.ncat; ++k) {
    const int zero = categories_[static_cast<std::size_t>(k - 1)]->zero;
    for (double& cell : x_.column(in_.catpos(k)))
      if (cell == kMissingCategory) cell = zero;
  }

  auto fail = [file](int i, const ReadResult& r) {
    ReadResult where = r;
    where.line = i;
    input_failure(file, join_text({"a number (case ", std::to_string(i), ")"}), where);
  };
  std::vector<double> values(static_cast<std::size_t>(in_.nvar));
  std::vector<ReadTarget> targets;
  for (double& v : values) targets.push_back(v);
  std::string record;
  for (const OddCase& c : odd_) {
    if (bad_case_ != 0 && c.row > bad_case_) break;
    record.clear();
    for (int j = 1; j <= in_.nvar; ++j) {
      if (catindex_[static_cast<std::size_t>(j)] > 0)
        record += std::to_string(static_cast<int>(x_(c.row, j)));
      else
        record += c.tokens[static_cast<std::size_t>(j - 1)];
      record += ' ';
    }
    std::fill(values.begin(), values.end(), 0.0);
    if (const ReadResult r = read_list(record, targets); !r) fail(c.row, r);
    for (int j = 1; j <= in_.nvar; ++j) x_(c.row, j) = values[static_cast<std::size_t>(j - 1)];
  }
  if (bad_case_ != 0) {
    ReadResult r;
    r.status = ReadStatus::bad_value;
    r.token = bad_token_;
    fail(bad_case_, r);
  }
}

}  // namespace vardel
