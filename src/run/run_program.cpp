#include "run/run_program.hpp"

#include <fstream>
#include <iostream>

#include "data/read_misdata.hpp"
#include "numerics/format.hpp"
#include "prune/prune_tree.hpp"
#include "report/cost_report.hpp"
#include "report/exitprog.hpp"
#include "report/run_header.hpp"
#include "report/tree_report.hpp"
#include "run/batch_file.hpp"
#include "run/dialogue.hpp"
#include "run/init.hpp"
#include "run/opening.hpp"
#include "run/option_availability.hpp"
#include "run/prompting.hpp"
#include "run/stop.hpp"
#include "timing/clock.hpp"
#include "tree/grow_tree.hpp"
#include "tree/tree_store.hpp"

namespace vardel {

namespace {

constexpr const char* kBanner = " VARDEL v2.8";
constexpr const char* kNotice = " Copyright (c) 2026 the VARDEL developers";
constexpr const char* kVersionDate = " This version was updated on: October 27, 2005";

void store_banner(Init& in) {
  in.bannerline = fixed_text(kBanner, kFileNameLen);
  in.noticeline = fixed_text(kNotice, kFileNameLen);
  in.versiondate = fixed_text(kVersionDate, kFileNameLen);
}

void allocate_run_arrays(Init& in) {
  in.termnode.assign(in.nobs, 1);
  in.prob.assign(in.nclass, 0.0);
  in.cost.assign(in.nclass, in.nclass, 0.0);
}

// Appends the elapsed times to the output file and shows them on the screen.
void end_timing(const Init& in) {
  run_stopwatch().stop();
  const ClockReading t = run_elapsed();
  const std::initializer_list<FmtItem> times = {" cpu = ", t.cpu, " user = ", t.user,
                                                " sys = ", t.sys, " wall = ", t.wall};
  std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
  write_fmt(out, "(a)", {" Elapsed time in seconds:"});
  write_fmt(out, "(2(a7,g10.3,a8,g10.3))", times);
  write_fmt(std::cout, "(a)", {" Elapsed time in seconds:"});
  write_fmt(std::cout, "(2(a7,g10.3,a8,g10.3))", times);
}

// Grows the largest tree, prunes it if asked, and writes the tree and cost reports.
void grow_and_report(Init& in) {
  write_fmt(std::cout, "(a)", {"  Building Initial Trees..."}, Advance::no);
  std::cout.flush();
  grow_tree_in_place(in.xdata, in.cdata, in.misind, in.prob, in.termnode);
  TreeStore& store = tree_store();
  store.dump_tree(1);
  if (in.treesize == 1) {
    write_fmt(std::cout, "(/,a)", {"  Pruning Trees..."}, Advance::no);
    std::cout.flush();
    prune_tree(in.xdata, in.cdata, in.misind);
  }
  print_node_info();
  cost_info();
}

// The run header, then the tree. A run whose options this version lacks ends
// after the header.
void build_tree(Init& in) {
  compute_record_positions(in);
  run_stopwatch().start();
  print_info();
  stop_if_unavailable();
  in.termnode.fill(1);
  in.calibrated = 'n';
  in.multifac = 1.0;
  grow_and_report(in);
}

void run() {
  Init& in = init();
  store_banner(in);
  write_banner();

  BatchFile batch;
  const int menu = opening_menu(batch);
  const bool batch_mode = menu == 2;
  ask_output_file(menu, batch);

  in.misslearn = 'y';
  read_misdata();
  if (batch_mode) batch.write_line(trim(in.dscfile));

  in.maxnodeid = maxnodeid_for(in.nclass);
  allocate_run_arrays(in);
  TreeStore& store = tree_store();
  store.start();
  store.scratch().open();

  in.optlevel = 1;
  integer_prompt("Input 1 for default options, 2 for advanced options", in.optlevel, 1, 2);
  write_list(std::cout, {});
  if (batch_mode) batch.write_choice(in.optlevel);

  // In batch-file mode only the answers are wanted, except that the dialogue's
  // early end at the pruning-sample imputation step builds the tree as well.
  bool build = !batch_mode;
  if (in.optlevel == 2) {
    const DialogueEnd end = advanced_dialogue(batch_mode ? &batch : nullptr);
    if (end == DialogueEnd::early) build = true;
  } else if (!batch_mode) {
    set_default_options(in);
  }
  if (build) build_tree(in);

  if (batch_mode) {
    write_fmt(std::cout, "(a,a)", {"  Selected options are stored in file: ", batch.name()});
    write_fmt(std::cout, "(a,a,a)",
              {"  Use command \"vardel < ", batch.name(), "\" to run the batch job"});
    batch.close();
    exitprog();
  }

  store.finish();
  store.scratch().close();
  write_list(std::cout, {});
  write_fmt(std::cout, "(a,a)",
            {"  Tree construction results are stored in file: ", trim(in.outfile)});
  end_timing(in);
}

}  // namespace

int run_program() {
  try {
    run();
    std::cout.flush();
    return 0;
  } catch (const RunStopped& stop) {
    std::cout.flush();
    return stop.status;
  }
}

}  // namespace vardel
