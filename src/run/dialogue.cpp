// The main sequence of the advanced dialogue, and the question helpers it
// shares with the other dialogue files.
#include "run/dialogue.hpp"

#include <iostream>

#include "data/read_testmisdata.hpp"
#include "numerics/format.hpp"
#include "run/dialogue_steps.hpp"
#include "run/init.hpp"
#include "run/prompting.hpp"

namespace vardel {

void choice_lines(std::initializer_list<const char*> lines) {
  for (const char* line : lines) write_fmt(std::cout, "(a)", {line});
}

int ask_integer(std::string_view prompt, int deflt, int lo, int hi) {
  int answer = deflt;
  integer_prompt(prompt, answer, lo, hi);
  write_list(std::cout, {});
  return answer;
}

int ask_choice(int deflt, int lo, int hi) {
  return ask_integer("Input your choice", deflt, lo, hi);
}

double ask_real(std::string_view prompt, double deflt, double lo, double hi) {
  double answer = deflt;
  double_prompt(prompt, answer, lo, hi);
  write_list(std::cout, {});
  return answer;
}

namespace {

void ask_split_type(Init& in, AnswerLog& log) {
  choice_lines({"  Choose 1 for univariate split", "         2 for linear combination split",
                "         3 for univariate split with bivariate node models"});
  in.splittype = ask_choice(1, 1, 3);
  log.choice(in.splittype);
  in.varsel = 0;
  in.splitsel = 0;
  in.pairsel = 0;
}

// Variable selection, pair selection and split selection (univariate splits only).
void ask_selection(Init& in, AnswerLog& log) {
  if (in.splittype != 1 && in.splittype != 3) return;
  const bool two_classes = in.nclass <= 2;
  choice_lines({"  Choose 1 for variable selection via 1D method",
                "         2 for variable selection via 2D method"});
  if (two_classes) choice_lines({"         3 for variable selection via exhaustive search"});
  const int answer = ask_choice(1, 1, two_classes ? 3 : 2);
  log.choice(answer);
  // The menu lists the 1D method first but its code is 2.
  in.varsel = answer == 1 ? 2 : answer == 2 ? 1 : 3;
  if (answer == 3) in.splitsel = 2;

  if (in.splittype == 3) {
    choice_lines({"  Choose 1 for pairwise variable selection via MANOVA",
                  "         2 for pairwise variable selection via LDF"});
    in.pairsel = ask_choice(1, 1, 2);
    log.choice(in.pairsel);
  }

  if (in.varsel != 1 && in.varsel != 2) return;
  if (!two_classes) {
    in.splitsel = 1;
    return;
  }
  choice_lines({"  Choose 1 for split selection via discriminant analysis",
                "         2 for split selection via exhaustive search"});
  in.splitsel = ask_choice(in.splittype == 1 ? 2 : 1, 1, 2);
  log.choice(in.splitsel);
}

void ask_stopping_and_pruning(Init& in, AnswerLog& log) {
  if ((in.splittype == 1 || in.splittype == 3) && in.varsel == 2) {
    in.alpha = ask_real("Enter alpha value for variable selection", 0.05, 0.0, 1.0);
    log.value(in.alpha);
  }
  if (in.splittype == 3) {
    choice_lines({"  Tree growing will stop if misclassification cost of a node",
                  "  is sufficiently small. Specifically, it stops growing if the",
                  "  cost of a node is less than (fraction)*(the cost of the root node)."});
    in.fraction = ask_real("Enter the value of fraction for early stopping", 0.05, 0.0, 1.0);
    log.value(in.fraction);
  }

  choice_lines({"  Choose 1 for pruning via cross-validation",
                "         2 for pruning via test sample",
                "         3 for direct stopping (biggest tree)"});
  const int pruning = ask_choice(1, 1, 3);
  log.choice(pruning);
  in.treesize = pruning == 3 ? 2 : 1;
  in.prunetype = pruning == 3 ? 0 : pruning;

  if (in.prunetype == 1) {
    in.folds = ask_integer("Input number of folds for cross-validation", 10, 2, in.nobs);
    log.value(in.folds);
    in.seed = 2345;
  }
  if (in.treesize == 1) {
    in.serule = ask_real("Input number of SEs for pruning", 1.0, 0.0, 50.0);
    log.value(in.serule);
  }
  in.mindat = ask_integer("Enter a mindat value", default_mindat(in.nobs), 1, in.nobs);
  log.value(in.mindat);
}

void ask_plot(Init& in, AnswerLog& log) {
  in.wantplot = 0;
  if (in.splittype != 3) return;
  choice_lines({"  The program can produce an Splus or R code to give scatter plot",
                "  with linear discriminant function boundaries for each terminal node."});
  in.wantplot = ask_integer("Input 1 if you wish to create such a file, 2 otherwise", 2, 1, 2);
  log.choice(in.wantplot);
  if (in.wantplot != 1) return;
  if (in.misslearn == 'y' && trim(in.misscode) != "NA") {
    write_fmt(std::cout, "(a,a)",
              {"  Splus or R code for scatter plot will read the data file ", trim(in.datafile)});
    choice_lines({"   but the data file does not use NA for missing value code.",
                  "  Please make this change before you run Splus or R."});
  }
  in.plotlang = ask_integer("Input 1 for Splus, 2 for R code", 1, 1, 2);
  log.choice(in.plotlang);
  ask_plot_file(log);
}

// Whether a data file of test cases or cases to classify is read, and reading it.
void ask_test_data(Init& in, AnswerLog& log) {
  if (in.prunetype == 1 || in.prunetype == 0) {
    choice_lines({"  VARDEL can print a file containing the predicted classes for the",
                  "  cases in a data file (either learning or test sample).",
                  "  The data file must be in the same format as the learning sample",
                  "  file, except that a column for the class label may or may not be present.",
                  "  Choose 1 to create a file containing the predicted classes",
                  "         2 otherwise"});
    const int predict = ask_choice(2, 1, 2);
    log.choice(predict);
    in.testtype = 3;
    if (predict == 1) {
      choice_lines({"  Choose 1 if the data file has a class label column (e.g., learning sample)",
                    "         2 if it does not (e.g., test sample)"});
      const int labelled = ask_choice(1, 1, 2);
      log.choice(labelled);
      in.testtype = 2;
      in.testlabel = labelled == 1 ? 'y' : 'n';
    }
  } else {
    in.testtype = 2;
    in.testlabel = 'y';
  }

  in.misstest = 'n';
  in.wantpredict = 1;
  if (in.testtype != 2 && in.prunetype != 2) return;
  if (in.testlabel == 'y')
    read_testmisdata();
  else
    read_testmis_no_class();
  log.line(trim(in.testfile));
  for (char m : in.misindtest)
    if (m == 'y') in.misstest = 'y';
  in.noctest.assign(in.nclass, 0);
  for (int c : in.ytest)
    if (c >= 1 && c <= in.nclass) ++in.noctest(c);
  in.wantpredict = 2;
  ask_predict_file(log);
}

void ask_build_imputation(Init& in, AnswerLog& log) {
  in.impbuild = 0;
  if (in.misslearn != 'y') return;
  if (in.splitsel == 2) {
    in.impbuild = 3;
    // Recorded although nothing is asked: a replay reads it as the next answer.
    log.choice(in.impbuild);
    return;
  }
  choice_lines({"  Missing values are found in the learning sample",
                "  Choose 1 to fit (complete cases) and impute",
                "         2 for nodewise imputation and fit",
                "         3 to fit (available cases) and impute (univariate split)",
                "         4 for global imputation at root node and fit"});
  in.impbuild = ask_choice(in.splittype == 1 || in.splittype == 3 ? 3 : 2, 1, 4);
  log.choice(in.impbuild);
  if (in.splittype == 3 && in.impbuild == 1)
    write_fmt(std::cout, "(a)",
              {" In univariate split with node models, #1 method is not supported."});
}

void ask_code_files(Init& in, AnswerLog& log) {
  in.wantlatex = ask_integer("Input 1 if you do NOT want latex code, 2 otherwise", 1, 1, 2);
  log.choice(in.wantlatex);
  if (in.wantlatex == 2) ask_latex_file(log);
  in.wantallclear = ask_integer("Input 1 if you do NOT want allCLEAR code, 2 otherwise", 1, 1, 2);
  log.choice(in.wantallclear);
  if (in.wantallclear == 2) ask_allclear_file(log);
}

}  // namespace

DialogueEnd advanced_dialogue(BatchFile* batch) {
  Init& in = init();
  AnswerLog log(batch);
  ask_split_type(in, log);
  ask_selection(in, log);
  ask_priors(log);
  ask_costs(log);
  ask_stopping_and_pruning(in, log);
  ask_plot(in, log);
  ask_test_data(in, log);
  ask_build_imputation(in, log);
  if (!ask_prune_imputation(log)) return DialogueEnd::early;
  ask_code_files(in, log);
  return DialogueEnd::complete;
}

}  // namespace vardel
