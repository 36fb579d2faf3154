// Free-form reading of streams and texts (see list_reader.hpp).
#include "numerics/list_reader.hpp"

namespace vardel {

bool StreamRecords::next(std::string_view& rec) {
  if (!std::getline(in_, buf_)) return false;
  // A carriage return before the line end is part of the line end.
  if (!buf_.empty() && buf_.back() == '\r') buf_.pop_back();
  rec = buf_;
  return true;
}

void ListReader::rewind() {
  in_.clear();
  in_.seekg(0);
  input_.reset();
}

namespace {

// One record, once.
class TextRecord : public RecordSource {
 public:
  explicit TextRecord(std::string_view text) : text_(text) {}
  bool next(std::string_view& rec) override {
    if (used_) return false;
    used_ = true;
    rec = text_;
    return true;
  }

 private:
  std::string_view text_;
  bool used_ = false;
};

}  // namespace

ReadResult read_list(std::string_view text, std::span<const ReadTarget> targets) {
  TextRecord record(text);
  ListInput input(record);
  return input.read(targets);
}

ReadResult read_list(std::string_view text, std::initializer_list<ReadTarget> targets) {
  return read_list(text, std::span<const ReadTarget>(targets.begin(), targets.size()));
}

}  // namespace vardel
