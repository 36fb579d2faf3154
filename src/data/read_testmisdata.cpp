#include "data/read_testmisdata.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "data/case_reading.hpp"
#include "data/sample_columns.hpp"
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
    write_fmt(std::cout, "(a,a,a)", {"  ***ERROR*** File ", path, " does not exist"});
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

// Takes the predictors of each case into the columns; with labels, drops the
// cases whose label is the missing code and looks up the class of the rest.
void read_test_sample(const char* prompt, bool labelled) {
  Init& in = init();
  std::ifstream file;
  open_test_file(in, prompt, file);
  const std::string path(trim(in.testfile));
  CaseFile cases(file, path);
  // The count leaves the "x" variables out; the reading that follows does not.
  const int counted =
      cases.count(in.nvar + (labelled ? 1 : 0), "  ***ERROR*** Test file ", kTestStop);

  const std::vector<int> slots = test_slots(in, labelled);
  SampleColumns columns(in, counted, true, in.xtest, in.misindtest);
  std::vector<std::string_view> predictors(static_cast<std::size_t>(in.nvar));
  std::vector<int> classes;
  bool unseen = false;
  TextIndex class_of;
  for (int k = 1; k <= in.nclass; ++k) class_of[std::string(text_key(in.clabel(k)))] = k;
  const std::string_view misskey = text_key(in.misscode);
  cases.read(static_cast<int>(slots.size()), counted,
             [&](std::span<const std::string_view> tokens) {
               std::string_view label;
               std::fill(predictors.begin(), predictors.end(), std::string_view());
               for (std::size_t t = 0; t < slots.size(); ++t) {
                 if (slots[t] == 0)
                   label = text_key(tokens[t]);
                 else if (slots[t] > 0)
                   predictors[static_cast<std::size_t>(slots[t] - 1)] = tokens[t];
               }
               if (labelled) {
                 if (label == misskey) return;
                 auto it = class_of.find(label);
                 classes.push_back(it == class_of.end() ? 0 : it->second);
                 unseen = unseen || it == class_of.end();
               }
               columns.add(predictors);
             });
  file.close();
  columns.close();
  in.ntest = columns.cases();

  if (labelled) {
    if (unseen) stop_with({"  ***ERROR*** Unseen categories exist in test data", kTestStop});
    in.ytest.assign(in.ntest, 0);
    for (int i = 1; i <= in.ntest; ++i) in.ytest(i) = classes[static_cast<std::size_t>(i - 1)];
  } else {
    // The class is unknown: the first class stands in.
    in.ytest.assign(in.ntest, 1);
    in.noctest.assign(in.nclass, 0);
    if (in.nclass >= 1) in.noctest(1) = in.ntest;
  }

  replace_file(in.outfile);
  columns.finish(path);
}

}  // namespace

void read_testmisdata() {
  read_test_sample("  Enter file name of the data file: ", true);
}

void read_testmis_no_class() {
  read_test_sample("  Enter file name of the test data file: ", false);
}

}  // namespace vardel
