// The pieces of the advanced dialogue shared by its files: the answer log,
// the question helpers, and the questions that live in files of their own.
#pragma once

#include <initializer_list>
#include <string_view>

#include "run/batch_file.hpp"

namespace vardel {

// Records answers in the batch file when one is being written; does nothing
// otherwise.
class AnswerLog {
 public:
  explicit AnswerLog(BatchFile* batch) : batch_(batch) {}
  bool recording() const { return batch_ != nullptr; }
  const BatchFile* batch() const { return batch_; }

  void choice(int answer) {
    if (batch_) batch_->write_choice(answer);
  }
  void value(double v) {
    if (batch_) batch_->write_value(v);
  }
  void value(int v) {
    if (batch_) batch_->write_value(v);
  }
  void line(std::string_view text) {
    if (batch_) batch_->write_line(text);
  }
  void file_name(std::string_view name) {
    if (batch_) batch_->write_name_and_overwrite(name);
  }

 private:
  BatchFile* batch_;
};

// Writes choice lines, one "(a)" record each.
void choice_lines(std::initializer_list<const char*> lines);

// Asks "Input your choice" with a default and range, then writes the blank line.
int ask_choice(int deflt, int lo, int hi);
// An integer question with its own text, then the blank line.
int ask_integer(std::string_view prompt, int deflt, int lo, int hi);
// A real question, then the blank line.
double ask_real(std::string_view prompt, double deflt, double lo, double hi);

// Priors (the prior question and one question per class for given priors).
void ask_priors(AnswerLog& log);
// Misclassification costs (equal or one question per ordered pair of classes).
void ask_costs(AnswerLog& log);

// The output-side file questions; each sets its file name setting.
void ask_plot_file(AnswerLog& log);
void ask_predict_file(AnswerLog& log);
void ask_latex_file(AnswerLog& log);
void ask_allclear_file(AnswerLog& log);

// The imputation of the pruning sample; sets impprune. False when the
// dialogue ends here, before the latex and allCLEAR questions.
bool ask_prune_imputation(AnswerLog& log);

}  // namespace vardel
