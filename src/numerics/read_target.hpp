// What one read statement fills and what it reports back.
//
// A ReadTarget names one variable of a read: a 32- or 64-bit integer, a double,
// a float, or a text item of a declared length (made with text()). A text item
// behaves like a fixed-length character variable: it always holds exactly its
// declared number of characters, a longer value is cut and a shorter one is
// padded with blanks.
//
// A ReadResult says whether the read filled its targets, ran into the end of
// the file, or met a token that is not a value of its target's type; in the
// last case it carries that token, and in both failures the line number, so
// that the caller can word its own message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vardel {

enum class ReadStatus { ok, end_of_file, bad_value };

struct ReadResult {
  ReadStatus status = ReadStatus::ok;
  std::string token;  // the offending token on bad_value
  long line = 0;      // 1-based line of the offending token; on end_of_file the last line read
  explicit operator bool() const { return status == ReadStatus::ok; }
};

class ReadTarget {
 public:
  enum class Kind { int32, int64, real64, real32, text };

  // Implicit on purpose: read({n, x, text(name, 21)}) lists targets as a read statement does.
  ReadTarget(std::int32_t& v) : kind_(Kind::int32), ptr_(&v) {}
  ReadTarget(std::int64_t& v) : kind_(Kind::int64), ptr_(&v) {}
  ReadTarget(double& v) : kind_(Kind::real64), ptr_(&v) {}
  ReadTarget(float& v) : kind_(Kind::real32), ptr_(&v) {}

  Kind kind() const { return kind_; }
  std::size_t length() const { return len_; }  // declared length of a text item
  template <class T>
  T& as() const {
    return *static_cast<T*>(ptr_);
  }

 private:
  friend ReadTarget text(std::string& s, std::size_t len);
  ReadTarget(std::string& s, std::size_t len) : kind_(Kind::text), ptr_(&s), len_(len) {}

  Kind kind_;
  void* ptr_;
  std::size_t len_ = 0;
};

// A text item of len characters held in s.
inline ReadTarget text(std::string& s, std::size_t len) {
  return ReadTarget(s, len);
}

}  // namespace vardel
