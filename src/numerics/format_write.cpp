// Formatted writing: runs a parsed format over an item list and assembles
// the records.
//
// Blanks from x are held back until something follows them in the same
// record, so a record ends at its last character written; only the last
// record of a non-advancing write keeps them (a prompt ending in a blank).
#include <ostream>
#include <stdexcept>
#include <vector>

#include "numerics/format.hpp"
#include "numerics/format_edit.hpp"
#include "numerics/format_parse.hpp"

namespace vardel {
namespace {

using Code = FormatOp::Code;

[[noreturn]] void wrong_item(std::string_view fmt, const char* what) {
  throw std::logic_error("format \"" + std::string(fmt) + "\": " + what);
}

class RecordWriter {
 public:
  RecordWriter(std::string_view fmt, std::span<const FmtItem> items) : fmt_(fmt), items_(items) {}
  std::string run(const ParsedFormat& pf, Advance adv);

 private:
  void execute(const ParsedFormat& pf);
  void flush_blanks() {
    out_.append(pending_, ' ');
    pending_ = 0;
  }
  void end_record() {
    pending_ = 0;
    out_ += '\n';
  }
  void edit(const FormatOp& op, const FmtItem& item);

  std::string_view fmt_;
  std::span<const FmtItem> items_;
  std::string out_;
  std::size_t pending_ = 0;  // blanks of x not yet written
};

void RecordWriter::edit(const FormatOp& op, const FmtItem& item) {
  flush_blanks();
  switch (op.code) {
    case Code::i:
      if (item.kind() != FmtItem::Kind::integer) wrong_item(fmt_, "i needs an integer item");
      return edit_integer(out_, item.integer(), op.w, op.d);
    case Code::f:
    case Code::e:
    case Code::g:
      // g edits an integer as i of the same width (the bounds of a prompt use g10.0).
      if (op.code == Code::g && item.kind() == FmtItem::Kind::integer)
        return edit_integer(out_, item.integer(), op.w, -1);
      if (op.code == Code::g && op.d == 0)
        wrong_item(fmt_, "g with no digits needs an integer item");
      if (item.kind() != FmtItem::Kind::real) wrong_item(fmt_, "f, e and g need a real item");
      if (op.code == Code::f) return edit_fixed(out_, item.real(), op.w, op.d);
      if (op.code == Code::e) return edit_exp(out_, item.real(), op.w, op.d);
      return edit_general(out_, item.real(), op.w, op.d);
    case Code::a:
      if (item.kind() != FmtItem::Kind::text) wrong_item(fmt_, "a needs a text item");
      return edit_text(out_, item.text(), op.w);
    default:
      return;
  }
}

std::string RecordWriter::run(const ParsedFormat& pf, Advance adv) {
  execute(pf);
  if (adv == Advance::yes) {
    end_record();
  } else {
    flush_blanks();
  }
  return std::move(out_);
}

// Runs the format until the items run out at a value descriptor, a colon or
// the outer close.
void RecordWriter::execute(const ParsedFormat& pf) {
  const auto& ops = pf.ops;
  const std::size_t last = ops.size() - 1;
  // Passes still to make of each open group, innermost last.
  struct Pass {
    std::size_t open;
    int left;
  };
  std::vector<Pass> groups;
  std::size_t next = 0;  // next item to write
  std::size_t pc = 1;

  for (;;) {
    const FormatOp& op = ops[pc];
    if (op.is_value()) {
      for (int r = 0; r < op.repeat; ++r) {
        if (next == items_.size()) return;
        edit(op, items_[next++]);
      }
      ++pc;
      continue;
    }
    switch (op.code) {
      case Code::x:
        pending_ += static_cast<std::size_t>(op.w);
        break;
      case Code::literal:
        flush_blanks();
        out_ += op.text;
        break;
      case Code::slash:
        for (int r = 0; r < op.repeat; ++r) end_record();
        break;
      case Code::colon:
        if (next == items_.size()) return;
        break;
      case Code::open:
        groups.push_back({pc, op.repeat - 1});
        break;
      case Code::close:
        if (pc == last) {
          if (next == items_.size()) return;
          if (!pf.reversion_takes_items) wrong_item(fmt_, "items left that no descriptor takes");
          end_record();
          pc = pf.reversion;
          continue;
        }
        if (groups.back().left > 0) {
          --groups.back().left;
          pc = groups.back().open + 1;
          continue;
        }
        groups.pop_back();
        break;
      default:
        break;
    }
    ++pc;
  }
}

}  // namespace

std::string format(std::string_view fmt, std::span<const FmtItem> items, Advance adv) {
  return RecordWriter(fmt, items).run(cached_format(fmt), adv);
}

std::string format(std::string_view fmt, std::initializer_list<FmtItem> items, Advance adv) {
  return format(fmt, std::span<const FmtItem>(items.begin(), items.size()), adv);
}

void write_fmt(std::ostream& out, std::string_view fmt, std::span<const FmtItem> items,
               Advance adv) {
  out << format(fmt, items, adv);
}

void write_fmt(std::ostream& out, std::string_view fmt, std::initializer_list<FmtItem> items,
               Advance adv) {
  out << format(fmt, items, adv);
}

}  // namespace vardel
