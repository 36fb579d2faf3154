#include "data/read_misdata.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "data/case_reading.hpp"
#include "data/description_file.hpp"
#include "data/learning_cases.hpp"
#include "data/sample_columns.hpp"
#include "numerics/format.hpp"
#include "numerics/list_reader.hpp"
#include "report/run_header.hpp"
#include "run/file_question.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

constexpr const char* kDataStop = "  ***Program stopped due to the error in data file***";

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
  CaseFile cases(file, data_path);
  const int counted = cases.count(dsc.nall, "  ***ERROR*** Data file ", kDataStop);
  in.nobs = counted;
  if (cases.more_than(static_cast<long long>(dsc.nall) * counted)) {
    stop_with({"  ***ERROR*** Entries in data file not multiple of no. of records",
               "  ***Verify that description file ends with a carriage return",
               "  ***Program stopped due to the error in dsc file***"});
  }

  in.nvar = dsc.nall - 1 - in.nexcl;
  // Without "x" variables the dependent's column number is taken as its
  // position, and a number beyond the last makes each case read more tokens.
  std::vector<int> slots =
      in.nexcl == 0 ? slots_by_position(in.nvar, dsc.dcolumn) : slots_by_type(in.alltype, true);
  const int width = static_cast<int>(slots.size());
  LearningCases learning(in, std::move(slots), counted);
  cases.read_parts(width, counted, learning);
  file.close();
  learning.merge();

  if (learning.first_blank() > 0) {
    write_list(std::cout,
               {"  ***ERROR*** Blank character string at line number", learning.first_blank()});
    stop_with({"  ***Program stopped due to an error in data file***"});
  }
  SampleColumns& columns = learning.columns();
  columns.close();
  in.nobs = columns.cases();
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

  const int cases_missing = columns.cases_with_missing();
  columns.clear_never_observed();
  learning.store_classes();
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

  if (in.ncat > 0) columns.store_categories(in);

  replace_file(in.outfile);
  columns.finish(data_path);
}

}  // namespace vardel
