// Module init: the run settings and the whole-sample arrays of one run.
//
// There is one instance, reached through init(). Every routine reads the
// settings from there rather than taking them as arguments. reset() returns it
// to the state of a fresh process (all numbers zero, all texts blank, no
// arrays), so that tests and repeated runs start clean.
//
// Text items are std::string kept at their declared length, blank padded:
// 80 characters for file names, 21 for names, labels and codes.
#pragma once

#include <string>

#include "numerics/farray.hpp"

namespace vardel {

inline constexpr std::size_t kFileNameLen = 80;
inline constexpr std::size_t kNameLen = 21;

// Positions of the fields of a node record, counted from 1. They depend only
// on nclass, nvar, ncat, the largest numcat and splittype, and are computed
// once per run by compute_record_positions().
struct RecordPositions {
  // Univariate and linear-combination layouts.
  int noc_pos = 0;
  int meanmode_pos = 0;
  int grand_pos = 0;
  int var_pos = 0;
  int test_pos = 0;
  int fk_pos = 0;
  int gmean_pos = 0;
  int cut_pos = 0;
  int cutcat_pos = 0;
  int grand_pos_lin = 0;
  int remean_pos = 0;
  int recoef_pos = 0;
  int fk_pos_lin = 0;
  int recrim_pos = 0;
  // Bivariate-model layout.
  int pair_pos = 0;
  int grand_pos_2v = 0;
  int xmm_pos = 0;
  int table_pos = 0;
  int coef2_pos = 0;
  int crim_pos_2v = 0;
  int cut_pos_nocrim = 0;
  int cut_pos_crim = 0;
};

struct Init {
  // Sample sizes.
  int nvar = 0;    // predictors kept; all variables of the description file while reading
  int nobs = 0;    // learning cases after cases with a missing class are dropped
  int nclass = 0;  // distinct class labels of the learning sample
  int ncat = 0;    // categorical predictors
  int ntest = 0;   // cases of the test data file
  int nexcl = 0;   // "x" variables of the description file

  // Options (see the dialogue for their codes).
  int splittype = 0;   // 1 univariate, 2 linear combination, 3 bivariate node models
  int priortype = 0;   // 1 equal, 2 estimated, 3 given
  int meansstype = 0;  // always 1
  int costtype = 0;    // 1 equal, 2 unequal
  int treesize = 0;    // 1 pruned, 2 direct stopping
  int prunetype = 0;   // 1 cross-validation, 2 test sample, 0 direct stopping
  int testtype = 0;    // 2 a test data file is read, 3 none (1 is never stored)
  int mindat = 0;      // smallest node that may be split
  int maxnodeid = 0;   // nodes numbered at or above this are not split
  int impbuild = 0;    // missing values when building, 1..4; 0 when none
  int impprune = 0;    // missing values when pruning or testing, 1..6; 0 when not asked
  int varsel = 0;      // 1 2D method, 2 1D method, 3 exhaustive; 0 for linear splits
  int optlevel = 0;    // 1 default options, 2 advanced
  int wantallclear = 0;
  int wantpredict = 0;
  int wantlatex = 0;
  int splitsel = 0;  // 1 discriminant analysis, 2 exhaustive; 0 for linear splits
  int wantplot = 0;
  int plotlang = 0;  // 1 Splus, 2 R
  int pairsel = 0;   // 1 MANOVA, 2 LDF
  double alpha = 0.0;
  double serule = 0.0;
  double fraction = 0.0;
  double multifac = 0.0;
  int folds = 0;
  int seed = 0;

  char misslearn = ' ';
  char misstest = ' ';
  char calibrated = ' ';
  char testlabel = ' ';

  std::string dname = std::string(kNameLen, ' ');
  std::string misscode = std::string(kNameLen, ' ');
  std::string outfile = std::string(kFileNameLen, ' ');
  std::string datafile = std::string(kFileNameLen, ' ');
  std::string testfile = std::string(kFileNameLen, ' ');
  std::string allclearfile = std::string(kFileNameLen, ' ');
  std::string predictfile = std::string(kFileNameLen, ' ');
  std::string dscfile = std::string(kFileNameLen, ' ');
  std::string latexfile = std::string(kFileNameLen, ' ');
  std::string plotfile = std::string(kFileNameLen, ' ');
  std::string bannerline = std::string(kFileNameLen, ' ');
  std::string noticeline = std::string(kFileNameLen, ' ');
  std::string versiondate = std::string(kFileNameLen, ' ');

  RecordPositions pos;

  // Node counters of the tree report and of growth.
  int nodes = 0;          // nodes visited by the last growth
  int nodesfinal = 0;     // nodes with a class in the final tree
  int nodesterminal = 0;  // terminal nodes of the final tree
  int nodesmax = 0;       // nodes of the largest tree (set by pruning; 0 without)

  // Cost and SE of the subtree chosen by cross-validation or test-sample
  // pruning, kept for the cost report.
  double prunecost = 0.0;
  double prunese = 0.0;

  // Learning sample.
  FArray<double> xdata;        // nobs by nvar; category codes for categorical columns; 0 if missing
  FArray<char> misind;         // nobs by nvar; 'y' missing, 'n' present
  FArray<int> cdata;           // nobs classes 1..nclass
  FArray<int> noc;             // nclass counts
  FArray<std::string> clabel;  // nclass labels in order of first appearance
  FArray<std::string> vname;   // nvar predictor names
  FArray<char> vtype;          // nvar 'n' or 'c'
  FArray<std::string> vxname;  // all variables, by ascending column number
  FArray<char> alltype;        // 'd', 'n', 'c' or 'x', same order
  FArray<int> catpos;          // ncat predictor index of each categorical predictor
  FArray<int> numcat;          // ncat category counts
  FArray<std::string> catlabel;  // ncat by largest numcat, by first appearance
  FArray<int> termnode;          // nobs node of each case
  FArray<double> prob;           // nclass priors summing to 1
  FArray<double> cost;           // nclass by nclass; cost(p, a) of predicting p for class a

  // Test data file and cross-validation folds.
  FArray<double> xtest;
  FArray<char> misindtest;
  FArray<int> ytest;
  FArray<int> noctest;
  FArray<double> xcvtest;
  FArray<int> ycvtest;
  FArray<char> miscvtest;

  FArray<int> cutcat;  // category list of a split, work array of the split routines

  int largest_numcat() const;
  void reset() { *this = Init{}; }
};

// The one instance of the run.
Init& init();

// maxnodeid for a number of classes: an integer power of nclass, computed in
// 32-bit arithmetic (a wrapped value is used as it stands).
int maxnodeid_for(int nclass);

// Default mindat: nobs * 0.005 in single precision, rounded half away from
// zero, and at least 2.
int default_mindat(int nobs);

// The default options (option level 1), in the order the run sets them.
void set_default_options(Init& in);

// Fills in.pos from nclass, nvar, ncat, the largest numcat and splittype.
void compute_record_positions(Init& in);

}  // namespace vardel
