#include "data/read_testmisdata.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "data/case_reading.hpp"
#include "data/text_table.hpp"
#include "numerics/format.hpp"
#include "numerics/list_reader.hpp"
#include "run/console.hpp"
#include "run/file_question.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

constexpr const char* kTestStop = "  ***Program stopped due to the error in test file***";

// Asks for the file's name until it opens; leaves the name in testfile.
void open_test_file(Init& in, const char* prompt, std::ifstream& file) {
  for (;;) {
    write_fmt(std::cout, "(a)", {prompt}, Advance::no);
    in.testfile = read_file_name(prompt);
    const std::string path(trim(in.testfile));
    std::error_code ec;
    if (!std::filesystem::is_directory(path, ec)) file.open(path);
    if (file.is_open()) {
      write_list(std::cout, {});
      return;
    }
    write_list(std::cout, {"  ***ERROR*** File ", path, " does not exist"});
    write_list(std::cout, {});
  }
}

// Token slots of a test case. With a label and no "x" variable the label
// stands at the position of "d" among the sorted variables.
std::vector<int> test_slots(const Init& in, bool labelled) {
  if (in.nexcl > 0) return slots_by_type(in.alltype, labelled);
  if (!labelled) {
    std::vector<int> slots;
    for (int j = 1; j <= in.nvar; ++j) slots.push_back(j);
    return slots;
  }
  int dpos = 0;
  for (int i = 1; i <= in.alltype.size(); ++i)
    if (in.alltype(i) == 'd') dpos = i;
  return slots_by_position(in.nvar, dpos);
}

void drop_unlabelled_cases(Init& in, TextTable& x, FArray<std::string>& labels) {
  std::vector<bool> keep(static_cast<std::size_t>(in.ntest));
  int kept = 0;
  for (int i = 1; i <= in.ntest; ++i) {
    keep[static_cast<std::size_t>(i - 1)] = labels(i) != in.misscode;
    kept += keep[static_cast<std::size_t>(i - 1)];
  }
  if (kept == in.ntest) return;
  x.keep_rows(keep);
  FArray<std::string> rest(kept);
  int k = 0;
  for (int i = 1; i <= in.ntest; ++i)
    if (keep[static_cast<std::size_t>(i - 1)]) rest(++k) = labels(i);
  labels = std::move(rest);
  in.ntest = kept;
}

void flag_missing(Init& in, TextTable& x) {
  in.misindtest.assign(in.ntest, in.nvar, 'n');
  for (int i = 1; i <= in.ntest; ++i) {
    for (int j = 1; j <= in.nvar; ++j) {
      if (x(i, j) != in.misscode) continue;
      x.set(i, j, "0");
      in.misindtest(i, j) = 'y';
    }
  }
}

void number_classes(Init& in, const FArray<std::string>& labels) {
  in.ytest.assign(in.ntest, 0);
  for (int k = 1; k <= in.nclass; ++k)
    for (int i = 1; i <= in.ntest; ++i)
      if (labels(i) == in.clabel(k)) in.ytest(i) = k;
  for (int i = 1; i <= in.ntest; ++i) {
    if (in.ytest(i) >= 1) continue;
    stop_with({"  ***ERROR*** Unseen categories exist in test data", kTestStop});
  }
}

// Categories take the learning sample's codes; an unknown one takes 0.
void recode_categories(const Init& in, TextTable& x) {
  std::vector<std::string> work(static_cast<std::size_t>(in.ntest));
  for (int k = 1; k <= in.ncat; ++k) {
    const int col = in.catpos(k);
    work.assign(work.size(), "0");
    for (int j = 1; j <= in.numcat(k); ++j) {
      const std::string code = format("(i10)", {j});
      for (int i = 1; i <= in.ntest; ++i)
        if (x(i, col) == in.catlabel(k, j)) work[static_cast<std::size_t>(i - 1)] = code;
    }
    for (int i = 1; i <= in.ntest; ++i) x.set(i, col, work[static_cast<std::size_t>(i - 1)]);
  }
}

void read_test_sample(const char* prompt, bool labelled) {
  Init& in = init();
  std::ifstream file;
  open_test_file(in, prompt, file);
  const std::string path(trim(in.testfile));
  ListReader reader(file);
  // The count leaves the "x" variables out; the reading that follows does not.
  in.ntest = count_cases(reader, in.nvar + (labelled ? 1 : 0), "  ***ERROR*** Test file ", path,
                         kTestStop);

  reader.rewind();
  TextTable x(in.ntest, in.nvar, kNameLen);
  FArray<std::string> labels(in.ntest, std::string(kNameLen, ' '));
  read_cases(reader, path, test_slots(in, labelled), x, labelled ? &labels : nullptr);
  file.close();

  if (labelled) drop_unlabelled_cases(in, x, labels);
  flag_missing(in, x);
  if (labelled) {
    number_classes(in, labels);
  } else {
    // The class is unknown: the first class stands in.
    in.ytest.assign(in.ntest, 1);
    in.noctest.assign(in.nclass, 0);
    if (in.nclass >= 1) in.noctest(1) = in.ntest;
  }
  recode_categories(in, x);

  replace_file(in.outfile);
  tokens_to_numbers(path, x, in.xtest);
}

}  // namespace

void read_testmisdata() {
  read_test_sample("  Enter file name of the data file: ", true);
}

void read_testmis_no_class() {
  read_test_sample("  Enter file name of the test data file: ", false);
}

}  // namespace vardel
