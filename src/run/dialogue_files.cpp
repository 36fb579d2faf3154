// The file questions of the advanced dialogue for the files the run writes:
// Splus or R code, prediction results, LaTeX code and allCLEAR code. Each
// refuses the names of the run's other files, in a fixed order, when the
// name already exists.
#include <vector>

#include "numerics/format.hpp"
#include "run/dialogue_steps.hpp"
#include "run/file_question.hpp"
#include "run/init.hpp"

namespace vardel {

namespace {

// The names a prediction file may not take, in the order they are tested.
std::vector<NameInUse> prediction_taken(const Init& in, const AnswerLog& log) {
  std::vector<NameInUse> taken = {
      {in.plotfile, "  This file name is already used by the Splus or R file."},
      {in.outfile, "  This file name is already used by the output file."},
      {in.dscfile, "  This file name is already used by the description file."},
      {in.datafile, "  This file name is already used by the learning sample."},
  };
  if (log.recording())
    taken.push_back({fixed_text(log.batch()->name(), kFileNameLen),
                     "  This file name is already used by the input file for batch job."});
  if (in.testtype == 2 || in.prunetype == 2)
    taken.push_back({in.testfile, "  This file name is already used by the test sample."});
  return taken;
}

std::vector<NameInUse> latex_taken(const Init& in, const AnswerLog& log) {
  std::vector<NameInUse> taken = prediction_taken(in, log);
  if (in.wantpredict == 2)
    taken.push_back(
        {in.predictfile, "  This file name is already used for the prediction results."});
  return taken;
}

std::string ask(std::string prompt, std::vector<NameInUse> taken, AnswerLog& log) {
  FileQuestion question;
  question.prompt = std::move(prompt);
  question.taken = std::move(taken);
  std::string name = ask_file_name(question);
  log.file_name(name);
  return name;
}

}  // namespace

void ask_plot_file(AnswerLog& log) {
  Init& in = init();
  in.plotfile = ask(in.plotlang == 1 ? "  Enter the name of file to store Splus code: "
                                     : "  Enter the name of file to store R code: ",
                    {}, log);
}

void ask_predict_file(AnswerLog& log) {
  Init& in = init();
  in.predictfile =
      ask("  Enter name of file to store prediction results: ", prediction_taken(in, log), log);
}

void ask_latex_file(AnswerLog& log) {
  Init& in = init();
  in.latexfile = ask("  Enter name of file to store latex code: ", latex_taken(in, log), log);
}

void ask_allclear_file(AnswerLog& log) {
  Init& in = init();
  std::vector<NameInUse> taken = latex_taken(in, log);
  if (in.wantlatex == 2)
    taken.push_back({in.latexfile, "  This file name is already used by the latex file."});
  in.allclearfile = ask("  Enter name of file to store allCLEAR code: ", std::move(taken), log);
}

}  // namespace vardel
