// The classification matrix of the cost report.
//
// write_class_matrix writes the head, a rule of "-", one row per true class
// and the rule again. table is K by K, indexed (predicted class, true class);
// row a lists table(p, a) for each predicted class p, then the prior prob(a)
// and the class's number of cases totals(a). Rows and columns follow
// class_order(init().clabel), as the other reports list classes.
//
// Column widths: the label column is as wide as the longest class label and
// at least 12; each count column as wide as that label too, at least 4, and
// never narrower than the widest count. The number of cases is set in as many
// columns as the widest count printed has digits (count_width).
#pragma once

#include <iosfwd>

#include "numerics/farray.hpp"

namespace vardel {

void write_class_matrix(std::ostream& out, const FArray<int>& table, const FArray<int>& totals,
                        const FArray<double>& prob);

// Digits of the largest number the matrix and its total line print: the
// entries of table, the class totals and their sum.
int count_width(const FArray<int>& table, const FArray<int>& totals);

// Sum of table(i, i): the cases classified correctly.
int diagonal_sum(const FArray<int>& table);

}  // namespace vardel
