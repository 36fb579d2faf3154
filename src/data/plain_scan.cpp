#include "data/plain_scan.hpp"

#include <algorithm>
#include <climits>
#include <mutex>

#include "numerics/parallel_for.hpp"

namespace vardel {

namespace {

// Block size of the reads of the first pass.
constexpr std::size_t kBlock = std::size_t{1} << 20;

// Files smaller than this per thread are counted on one thread.
constexpr long long kMinSegment = 4LL << 20;
// Guards the number of stretches when their size is given.
constexpr long long kMaxSegments = 1024;

// Per byte: bit 0 for a separator (blank, tab, carriage return, line end),
// bit 1 for a character that makes the file not plain.
constexpr std::array<unsigned char, 256> make_kinds() {
  std::array<unsigned char, 256> t{};
  for (std::size_t c = 0; c < 256; ++c) {
    const unsigned char k = plain_text::kClass[c];
    t[c] = k == plain_text::kSpecial ? 2 : k == plain_text::kToken ? 0 : 1;
  }
  return t;
}
constexpr std::array<unsigned char, 256> kKind = make_kinds();

// A stretch of whole lines of the file, counted on its own from a given
// state: the tokens still wanted by a read going on from the line before.
struct Segment {
  long long from = 0;
  long long to = 0;
  long long need_in = 0;
  bool plain = true;
  long long cases = 0;
  long long tokens = 0;
  long lines = 0;
  long long need_out = 0;
  long long end = 0;                   // where the reading ended
  std::vector<long long> part_offset;  // as in PlainCount, the cases counted
  std::vector<long long> part_first;   // from the start of the segment
};

class SegmentCounter {
 public:
  SegmentCounter(std::istream& in, std::mutex& file, int width, std::size_t part_bytes)
      : in_(in), file_(file), width_(width), part_bytes_(static_cast<long long>(part_bytes)) {}

  // Counts s from s.need_in; the last segment also counts a last line
  // without a line end.
  void count(Segment& s, bool last) {
    Segment fresh;
    fresh.from = s.from;
    fresh.to = last ? LLONG_MAX : s.to;
    fresh.need_in = s.need_in;
    s = std::move(fresh);
    const long long from = s.from;
    need_ = s.need_in;
    line_start_ = from;
    line_tokens_ = 0;
    last_part_ = 0;
    std::vector<char> block(kBlock);
    long long pos = from;
    unsigned prev_sep = 1;  // a line starts after a separator
    unsigned special = 0;
    while (pos < s.to) {
      const std::size_t want =
          static_cast<std::size_t>(std::min<long long>(static_cast<long long>(kBlock), s.to - pos));
      std::size_t got;
      {
        const std::lock_guard<std::mutex> lock(file_);
        in_.clear();
        in_.seekg(pos);
        in_.read(block.data(), static_cast<std::streamsize>(want));
        got = static_cast<std::size_t>(in_.gcount());
      }
      if (got == 0) break;
      const char* const d = block.data();
      std::size_t i = 0;
      while (i < got) {
        const void* nl = std::memchr(d + i, '\n', got - i);
        const std::size_t e = nl ? static_cast<std::size_t>(static_cast<const char*>(nl) - d) : got;
        // Token starts: a character that is no separator after one that is.
        long long starts = 0;
        for (std::size_t k = i; k < e; ++k) {
          const unsigned kind = kKind[static_cast<unsigned char>(d[k])];
          const unsigned sep = kind & 1u;
          starts += prev_sep & (sep ^ 1u);
          prev_sep = sep;
          special |= kind;
        }
        line_tokens_ += starts;
        if (!nl) break;
        prev_sep = 1;
        ++s.lines;
        end_line(s, pos + static_cast<long long>(e) + 1);
        i = e + 1;
      }
      pos += static_cast<long long>(got);
      if (special & 2u) {
        s.plain = false;
        return;
      }
    }
    // A last line without a line end; an empty one is no line.
    if (last && line_start_ < pos) {
      ++s.lines;
      end_line(s, pos);
    }
    s.end = pos;
    s.need_out = need_;
  }

 private:
  // Ends the line that started at line_start_: a read of width tokens starts
  // on a line and takes tokens over line ends until it has them all, then
  // drops the rest of its last line.
  void end_line(Segment& s, long long next) {
    s.tokens += line_tokens_;
    if (line_tokens_ > 0 && width_ > 0) {
      if (need_ == 0) {
        need_ = width_;
        if (s.part_first.empty() || line_start_ - last_part_ >= part_bytes_) {
          s.part_offset.push_back(line_start_);
          s.part_first.push_back(s.cases);
          last_part_ = line_start_;
        }
      }
      if (line_tokens_ >= need_) {
        ++s.cases;
        need_ = 0;
      } else {
        need_ -= line_tokens_;
      }
    }
    line_tokens_ = 0;
    line_start_ = next;
  }

  std::istream& in_;
  std::mutex& file_;
  int width_;
  long long part_bytes_;
  long long need_ = 0;
  long long line_start_ = 0;
  long long line_tokens_ = 0;
  long long last_part_ = 0;
};

// The first line start at or after `at`, or the end of the file.
long long line_start_from(std::istream& in, long long at, long long bytes) {
  std::vector<char> block(std::size_t{1} << 16);
  for (long long pos = at - 1; pos < bytes;) {
    in.clear();
    in.seekg(pos);
    in.read(block.data(), static_cast<std::streamsize>(block.size()));
    const std::size_t got = static_cast<std::size_t>(in.gcount());
    if (got == 0) break;
    if (const void* nl = std::memchr(block.data(), '\n', got))
      return pos + (static_cast<const char*>(nl) - block.data()) + 1;
    pos += static_cast<long long>(got);
  }
  return bytes;
}

}  // namespace

PlainSizes& plain_sizes() {
  static PlainSizes sizes;
  return sizes;
}

bool PlainScan::count(int width, PlainCount& out) {
  out = PlainCount{};
  in_.clear();
  in_.seekg(0, std::ios::end);
  const long long bytes = static_cast<long long>(in_.tellg());
  // The file is cut into stretches of whole lines counted at once, each as
  // if no read went on into it; a stretch that a read does go on into is
  // counted again, in turn, from the state the one before left.
  long long n = 1;
  if (bytes > 0 && sizes_.segment_bytes > 0)
    n = std::clamp(bytes / sizes_.segment_bytes, 1LL, kMaxSegments);
  else if (bytes > 0)
    n = std::clamp(bytes / kMinSegment, 1LL, static_cast<long long>(parallel_threads()));
  std::vector<Segment> segments(static_cast<std::size_t>(n));
  for (long long k = 1; k < n; ++k) {
    const long long at = std::max(segments[static_cast<std::size_t>(k - 1)].from, bytes * k / n);
    segments[static_cast<std::size_t>(k)].from = line_start_from(in_, at, bytes);
    segments[static_cast<std::size_t>(k - 1)].to = segments[static_cast<std::size_t>(k)].from;
  }
  segments.back().to = bytes;
  // A line longer than a stretch leaves the stretches after it empty.
  std::erase_if(segments, [](const Segment& s) { return s.from >= s.to; });
  if (segments.empty()) segments.emplace_back();
  std::mutex file;
  SegmentCounter counter(in_, file, width, sizes_.part_bytes);
  const std::ptrdiff_t last = static_cast<std::ptrdiff_t>(segments.size()) - 1;
  fork_join(last + 1, [&](std::ptrdiff_t k) {
    SegmentCounter own(counter);
    own.count(segments[static_cast<std::size_t>(k)], k == last);
  });
  for (const Segment& s : segments)
    if (!s.plain) return false;
  long long need = 0;
  for (std::size_t k = 0; k < segments.size(); ++k) {
    Segment& s = segments[k];
    if (s.need_in != need) {
      s.need_in = need;
      counter.count(s, k + 1 == segments.size());
    }
    for (std::size_t p = 0; p < s.part_first.size(); ++p) {
      out.part_offset.push_back(s.part_offset[p]);
      out.part_first.push_back(out.cases + s.part_first[p]);
    }
    out.cases += s.cases;
    out.tokens += s.tokens;
    out.lines += s.lines;
    out.bytes = s.end;
    need = s.need_out;
  }
  // A part holding only an incomplete last read has no case.
  while (!out.part_first.empty() && out.part_first.back() >= out.cases) {
    out.part_first.pop_back();
    out.part_offset.pop_back();
  }
  return true;
}

bool PlainScan::read_part(const PlainCount& count, std::size_t p, std::vector<char>& text) {
  const long long from = count.part_offset[p];
  const long long to = p + 1 < count.parts() ? count.part_offset[p + 1] : count.bytes;
  text.resize(static_cast<std::size_t>(to - from));
  in_.clear();
  in_.seekg(from);
  in_.read(text.data(), static_cast<std::streamsize>(text.size()));
  const std::size_t got = static_cast<std::size_t>(in_.gcount());
  if (got == text.size()) return true;
  text.resize(got);
  return false;
}

}  // namespace vardel
