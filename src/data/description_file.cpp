#include "data/description_file.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include "data/input_failure.hpp"
#include "numerics/format.hpp"
#include "numerics/indexx.hpp"
#include "numerics/list_reader.hpp"
#include "report/exitprog.hpp"
#include "run/console.hpp"

namespace vardel {

namespace {

constexpr const char* kDscStop = "  ***Program stopped due to an error in dsc file***";

struct VariableRecord {
  int column = 0;
  std::string name;  // 21 characters
  std::string type;  // 3 characters
};

[[noreturn]] void dsc_error(std::initializer_list<std::string_view> lines) {
  for (std::string_view line : lines) write_fmt(std::cout, "(a)", {line});
  write_fmt(std::cout, "(a)", {kDscStop});
  exitprog();
}

// Asks for the file's name until it can be opened.
void open_description(Init& in, std::ifstream& file) {
  constexpr const char* prompt = "  Enter name of variable description file: ";
  for (;;) {
    write_fmt(std::cout, "(a)", {prompt}, Advance::no);
    in.dscfile = read_file_name(prompt);
    const std::string path(trim(in.dscfile));
    std::error_code ec;
    if (!std::filesystem::is_directory(path, ec)) file.open(path);
    if (file.is_open()) {
      write_list(std::cout, {});
      return;
    }
    write_list(std::cout, {"  ***ERROR*** File ", trim(in.dscfile), " does not exist"});
    write_list(std::cout, {});
  }
}

// Lines 1 to 3: the data file, the missing-value code, a heading.
void read_head(Init& in, ListReader& reader) {
  const std::string file(trim(in.dscfile));
  if (auto r = reader.read({text(in.datafile, kFileNameLen)}); !r)
    input_failure(file, "the name of the data file", r);
  if (auto r = reader.read({text(in.misscode, kNameLen)}); !r)
    input_failure(file, "the missing-value code", r);
  if (auto r = reader.skip_record(); !r) input_failure(file, "the heading line", r);
}

int count_records(Init& in, ListReader& reader) {
  int count = 0;
  std::string a, b, c;
  for (;;) {
    const ReadResult r = reader.read({text(a, kNameLen), text(b, kNameLen), text(c, kNameLen)});
    if (r.status == ReadStatus::end_of_file) return count;
    if (!r) {
      write_fmt(std::cout, "(a,a,a)",
                {"  ***ERROR*** Description file ", trim(in.dscfile), " has illegal value"});
      write_fmt(std::cout, "(a)", {kDscStop});
      exitprog();
    }
    ++count;
  }
}

}  // namespace

DescriptionSummary read_description(Init& in) {
  std::ifstream file;
  open_description(in, file);
  ListReader reader(file);
  read_head(in, reader);
  const int nall = count_records(in, reader);
  in.nvar = nall;

  reader.rewind();
  read_head(in, reader);
  in.nexcl = 0;
  bool have_d = false;
  DescriptionSummary summary;
  summary.nall = nall;
  std::vector<VariableRecord> records(static_cast<std::size_t>(nall));
  for (VariableRecord& rec : records) {
    if (auto r = reader.read({rec.column, text(rec.name, kNameLen), text(rec.type, 3)}); !r)
      input_failure(trim(in.dscfile), "a variable record (column number, name, type)", r);
    if (rec.type != "d  " && rec.type != "n  " && rec.type != "c  " && rec.type != "x  ") {
      dsc_error(
          {"  ***ERROR*** Error in variable type", "  Please use \"d\", \"n\", \"c\", or \"x\""});
    }
    if (rec.type[0] == 'd') {
      summary.dcolumn = rec.column;
      in.dname = rec.name;
      have_d = true;
    }
    if (rec.type[0] == 'x') ++in.nexcl;
  }
  if (!have_d)
    dsc_error({"  ***ERROR*** Error in variable type", "  There is no \"d\" type variable"});

  // Variables in ascending column order.
  FArray<int> columns(nall, 0);
  for (int i = 1; i <= nall; ++i) columns(i) = records[static_cast<std::size_t>(i - 1)].column;
  FArray<int> order(nall, 0);
  indexx_i4b(columns.span(), order.span());
  in.alltype.assign(nall, ' ');
  in.vxname.assign(nall, std::string(kNameLen, ' '));
  const int npred = nall - 1 - in.nexcl;
  in.vname.assign(npred > 0 ? npred : 0, std::string(kNameLen, ' '));
  in.vtype.assign(npred > 0 ? npred : 0, ' ');
  int p = 0;
  for (int i = 1; i <= nall; ++i) {
    const VariableRecord& rec = records[static_cast<std::size_t>(order(i) - 1)];
    in.alltype(i) = rec.type[0];
    in.vxname(i) = rec.name;
    if (rec.type[0] != 'd' && rec.type[0] != 'x' && p < npred) {
      ++p;
      in.vname(p) = rec.name;
      in.vtype(p) = rec.type[0];
    }
  }

  for (int i = 1; i <= nall; ++i) {
    const std::string a(trim(adjustl(in.vxname(i))));
    for (int j = i + 1; j <= nall; ++j) {
      if (a != trim(adjustl(in.vxname(j)))) continue;
      write_fmt(std::cout, "(a)", {"  ***ERROR*** Error in variable name"});
      write_fmt(std::cout, "(a,i3,a,i3,a)",
                {"  Variable names are the same at columns ", i, " and ", j});
      dsc_error({"  Please use different variable names."});
    }
  }

  in.ncat = 0;
  for (char t : in.vtype) in.ncat += t == 'c';
  in.catpos.assign(in.ncat, 0);
  int c = 0;
  for (int j = 1; j <= in.vtype.size(); ++j)
    if (in.vtype(j) == 'c') in.catpos(++c) = j;
  return summary;
}

}  // namespace vardel
