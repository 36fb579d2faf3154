// The screen and the keyboard: standard output and standard input.
//
// Answers are read a line at a time. Standard input that ends while the run
// still waits for an answer ends the run with one clear line and a non-zero
// status (a batch file with too few answers, for instance).
#pragma once

#include <string>
#include <string_view>

namespace vardel {

// One line of standard input, without its line end (a trailing carriage
// return is dropped too). Ends the run if standard input has ended; `what`
// names the answer that was awaited.
std::string read_answer_line(std::string_view what);

// A file name answered on standard input: one free-form read into a text of
// 80 characters, going on over empty lines. Ends the run if standard input ends.
std::string read_file_name(std::string_view what);

// The run ends because standard input has no more answers.
[[noreturn]] void end_of_answers(std::string_view what);

}  // namespace vardel
