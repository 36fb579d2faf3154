#include "data/read_misdata.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/case_reading.hpp"
#include "data/description_file.hpp"
#include "data/recodemiscat.hpp"
#include "data/text_table.hpp"
#include "numerics/format.hpp"
#include "numerics/list_reader.hpp"
#include "report/run_header.hpp"
#include "run/file_question.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

constexpr const char* kDataStop = "  ***Program stopped due to the error in data file***";

bool all_blank(std::string_view s) {
  return s.find_first_not_of(' ') == std::string_view::npos;
}

void check_blank_tokens(const TextTable& x) {
  for (int i = 1; i <= x.rows(); ++i) {
    for (int j = 1; j <= x.cols(); ++j) {
      if (!all_blank(x(i, j))) continue;
      write_list(std::cout, {"  ***ERROR*** Blank character string at line number", i});
      stop_with({"  ***Program stopped due to an error in data file***"});
    }
  }
}

void drop_unlabelled_cases(Init& in, TextTable& x, FArray<std::string>& y) {
  std::vector<bool> keep(static_cast<std::size_t>(in.nobs));
  int kept = 0;
  for (int i = 1; i <= in.nobs; ++i) {
    keep[static_cast<std::size_t>(i - 1)] = y(i) != in.misscode;
    kept += keep[static_cast<std::size_t>(i - 1)];
  }
  if (kept == in.nobs) return;
  x.keep_rows(keep);
  FArray<std::string> labels(kept);
  int k = 0;
  for (int i = 1; i <= in.nobs; ++i)
    if (keep[static_cast<std::size_t>(i - 1)]) labels(++k) = y(i);
  y = std::move(labels);
  in.nobs = kept;
}

// Flags missing values (their token becomes "0"); returns the cases with any.
int flag_missing(Init& in, TextTable& x) {
  in.misind.assign(in.nobs, in.nvar, 'n');
  int cases = 0;
  for (int i = 1; i <= in.nobs; ++i) {
    bool any = false;
    for (int j = 1; j <= in.nvar; ++j) {
      if (x(i, j) != in.misscode) continue;
      x.set(i, j, "0");
      in.misind(i, j) = 'y';
      any = true;
    }
    cases += any;
  }
  // A variable never observed stays as the constant 0, not as missing.
  for (int j = 1; j <= in.nvar; ++j) {
    bool all_missing = in.nobs > 0;
    for (int i = 1; i <= in.nobs && all_missing; ++i) all_missing = in.misind(i, j) == 'y';
    if (all_missing)
      for (int i = 1; i <= in.nobs; ++i) in.misind(i, j) = 'n';
  }
  return cases;
}

void number_classes(Init& in) {
  std::unordered_map<std::string, int> position;
  std::vector<std::string> labels;
  in.cdata.assign(in.nobs, 0);
  for (int i = 1; i <= in.nobs; ++i) {
    auto [it, added] = position.try_emplace(in.ydata(i), static_cast<int>(labels.size()) + 1);
    if (added) labels.push_back(in.ydata(i));
    in.cdata(i) = it->second;
  }
  in.nclass = static_cast<int>(labels.size());
  in.clabel.assign(in.nclass);
  for (int k = 1; k <= in.nclass; ++k) in.clabel(k) = labels[static_cast<std::size_t>(k - 1)];
  in.noc.assign(in.nclass, 0);
  for (int i = 1; i <= in.nobs; ++i) ++in.noc(in.cdata(i));
}

}  // namespace

void read_misdata() {
  Init& in = init();
  write_fmt(std::cout, "(a)",
            {"  You should have a file with the following codes for each variable:"});
  write_fmt(std::cout, "(a)",
            {"  d=dependent, n=numerical, c=categorical, x=excluded from analysis."});
  write_fmt(std::cout, "(a)", {"  Use commas or spaces as delimiters."});

  const DescriptionSummary dsc = read_description(in);

  const std::string data_path(trim(in.datafile));
  std::ifstream file;
  std::error_code ec;
  if (!std::filesystem::is_directory(data_path, ec)) file.open(data_path);
  if (!file.is_open()) {
    write_fmt(std::cout, "(a,a,a)", {"  ***ERROR*** File ", data_path, " does not exist"});
    stop_with({"  ***Program stopped due to an error in dsc file***"});
  }
  ListReader reader(file);
  in.nobs = count_cases(reader, dsc.nall, "  ***ERROR*** Data file ", data_path, kDataStop);

  reader.rewind();
  const long long whole = static_cast<long long>(dsc.nall) * in.nobs;
  if (reader.skip_values(whole + 1)) {
    stop_with({"  ***ERROR*** Entries in data file not multiple of no. of records",
               "  ***Verify that description file ends with a carriage return",
               "  ***Program stopped due to the error in dsc file***"});
  }

  reader.rewind();
  in.nvar = dsc.nall - 1 - in.nexcl;
  TextTable x(in.nobs, in.nvar, kNameLen);
  in.ydata.assign(in.nobs, std::string(kNameLen, ' '));
  const std::vector<int> slots =
      in.nexcl == 0 ? slots_by_position(in.nvar, dsc.dcolumn) : slots_by_type(in.alltype, true);
  read_cases(reader, data_path, slots, x, &in.ydata);
  file.close();

  check_blank_tokens(x);
  drop_unlabelled_cases(in, x, in.ydata);
  if (in.nobs == 0) {
    write_fmt(std::cout, "(a,a,a)",
              {"  ***ERROR*** Data file ", data_path, " has no case with a class label"});
    stop_with({kDataStop});
  }

  write_fmt(std::cout, "(a,a)", {"  Learning sample data file: ", data_path});
  write_fmt(std::cout, "(a,a)", {"  Code for missing values: ", trim(in.misscode)});
  write_fmt(std::cout, "(a,i14)", {"  Number of observations in data file: ", in.nobs});
  write_fmt(std::cout, "(a,i5)", {"  Number of variables included in the analysis: ", in.nvar});
  write_fmt(std::cout, "(a,i20)", {"  Number of numerical variables: ", in.nvar - in.ncat});
  write_fmt(std::cout, "(a,i18)", {"  Number of categorical variables: ", in.ncat});

  const int cases_missing = flag_missing(in, x);
  number_classes(in);
  int classes_present = 0;
  for (int n : in.noc) classes_present += n > 0;
  write_fmt(std::cout, "(a,i32)", {"  Number of classes: ", classes_present});
  write_fmt(std::cout, "(a,i14)", {"  Cases with 1 or more missing values: ", cases_missing});
  write_fmt(std::cout, "(a,16x,f5.2,a)",
            {"  Percentage of missing values: ", missing_percentage(), "%"});
  write_list(std::cout, {});
  bool any_missing = false;
  for (char c : in.misind) any_missing = any_missing || c == 'y';
  if (!any_missing) in.misslearn = 'n';

  if (in.ncat > 0) recodemiscat(in, x);

  replace_file(in.outfile);
  tokens_to_numbers(data_path, x, in.xdata);
}

}  // namespace vardel
