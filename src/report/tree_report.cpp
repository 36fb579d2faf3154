// print_node_info: the whole tree report, appended to the output file.
#include "report/tree_report.hpp"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>

#include "numerics/format.hpp"
#include "report/class_order.hpp"
#include "report/tree_walk.hpp"
#include "run/init.hpp"

namespace vardel {
namespace {

struct HeaderLines {
  const char* first;
  const char* second;
};

// The column heads of the detailed table, by the kind of tree.
HeaderLines table_header(const Init& in) {
  if (in.splittype == 1) {
    switch (in.varsel) {
      case 2:
        return {"  Nodes      No.     Subnode    Split     Split          Split",
                "  label    cases      label     stat.    variable        value"};
      case 1:
        return {"  Nodes      No.     Subnode    Interact     Split          Split",
                "  label    cases      label     variable    variable        value"};
      case 3:
        return {"  Nodes      No.     Subnode                 Split          Split",
                "  label    cases      label                 variable        value"};
      default:
        break;
    }
  }
  return {"  Nodes    No.     Class     Subnode", "  label  cases     sizes      label "};
}

}  // namespace

void print_node_info() {
  Init& in = init();
  in.nodesfinal = 0;
  in.nodesterminal = 0;
  int largest = 0;
  for (const int count : in.noc) largest = std::max(largest, count);
  const int d = digit_count(largest);
  const int w = label_width(in.clabel);

  std::ofstream out(std::string(trim(in.outfile)), std::ios::app);
  write_list(out, {" Following tree is based on **"});
  write_list(out, {});
  write_list(out, {" Splits of the Tree: "});
  write_list(out, {});
  write_list(out, {"  Node      Split variable"});
  skeleton_tree(out, 1);

  write_list(out, {});
  write_list(out, {" Tree Structure: "});
  write_list(out, {});
  format_tree(out, 1, std::max(w, d));

  write_list(out, {});
  write_list(out, {" Detailed Description of the Tree: "});
  write_list(out, {});
  const HeaderLines header = table_header(in);
  write_fmt(out, "(a)", {header.first});
  write_fmt(out, "(a)", {header.second});
  print_tree(out, 1, w, d);
  write_list(out, {});

  write_fmt(out, "(a,i7)", {" Number of nodes in maximum tree        = ", in.nodesmax});
  write_fmt(out, "(a,i7)", {" Number of nodes in final tree          = ", in.nodesfinal});
  write_fmt(out, "(a,i7)", {" Number of terminal nodes in final tree = ", in.nodesterminal});
  out.close();

  write_fmt(std::cout, "(a,i7)", {"  Number of terminal nodes in final tree = ", in.nodesterminal});
  // The LaTeX and flowchart writers (latex_tree, allclear_tree, asked for by
  // wantlatex == 2 and wantallclear == 2) are called from here once they exist.
}

}  // namespace vardel
