// Pieces shared by the readers of data files (learning sample and test
// samples): where each token of a case goes, the count of whole cases, the
// reading of the cases as 21-character tokens, and the conversion of the
// predictor tokens to numbers.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "data/text_table.hpp"
#include "numerics/farray.hpp"
#include "numerics/list_reader.hpp"

namespace vardel {

// Writes each line by "(a)" and ends the run through exitprog.
[[noreturn]] void stop_with(std::initializer_list<std::string_view> lines);

// Token slots of a case: 0 the class label, j > 0 predictor j, -1 dropped.
// By position: the label at position dpos among nvar + 1 tokens; a position
// outside 1..nvar + 1 drops the predictors that fall beyond the table.
std::vector<int> slots_by_position(int nvar, int dpos);
// By type letters ('d', 'x', others predictors in order). With a label
// false, the 'd' column has no token.
std::vector<int> slots_by_type(const FArray<char>& alltype, bool label);

// Counts whole cases of `width` tokens, each case one read; end of file ends
// the count and a last incomplete case is not counted. Any other read failure
// writes the error line for `file` and `stop_line`, then calls exitprog.
int count_cases(ListReader& reader, int width, std::string_view error_head, std::string_view file,
                std::string_view stop_line);

// Reads x.rows() cases by the slots: predictors into x, labels into y (if
// given). A failed read ends the run as an input failure on `file`.
void read_cases(ListReader& reader, std::string_view file, const std::vector<int>& slots,
                TextTable& x, FArray<std::string>* y);

// Turns the tokens into numbers in out (rows by cols), each case as one
// free-form read of cols values; a token that is no number ends the run as
// an input failure on `file`.
void tokens_to_numbers(std::string_view file, const TextTable& x, FArray<double>& out);

}  // namespace vardel
