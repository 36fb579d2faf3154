#include "run/opening.hpp"

#include <iostream>

#include "numerics/format.hpp"
#include "run/console.hpp"
#include "run/file_question.hpp"
#include "run/init.hpp"
#include "run/prompting.hpp"
#include "run/stop.hpp"

namespace vardel {

namespace {

constexpr const char* kWarranty[] = {
    " WARRANTY DISCLAIMER",
    " Because this PROGRAM is free of charge, there is no warranty for it.",
    " The copyright holder provides the program 'as is' without warranty of any",
    " kind, either expressed or implied, including, but not limited to, the implied",
    " warranties of merchantability and fitness for a particular purpose.",
    " The entire risk as to the quality and performance of the program is with you.",
    " Should the program prove defective, you assume the cost of all necessary",
    " servicing, repair or correction.",
    " In no event will the copyright holder be liable to you for damages,",
    " including any general, special, incidental or consequential damages arising",
    " out of the use or inability to use the program (including but not limited",
    " to loss of data or data being rendered inaccurate or losses sustained",
    " by you or third parties or a failure of the program to operate with",
    " any other programs), even if such holder has been advised of the possibility",
    " of such damages.",
};

void open_batch_file(BatchFile& batch) {
  constexpr const char* prompt = "  Enter name of input file for batch job: ";
  for (;;) {
    write_fmt(std::cout, "(a)", {prompt}, Advance::no);
    const std::string name = read_file_name(prompt);
    if (batch.open(name, false)) {
      write_list(std::cout, {});
      break;
    }
    write_fmt(std::cout, "(a)", {"  A file by that name already exists"});
    int choice = 1;
    integer_prompt("Input 1 to overwrite it, 2 to choose another name", choice, 1, 2);
    write_list(std::cout, {});
    if (choice == 1 && batch.open(name, true)) break;
  }
  batch.write_line("1");  // the replay's menu answer: interactive mode
}

}  // namespace

void write_banner() {
  const Init& in = init();
  write_fmt(std::cout, "(1x,a)", {trim(in.bannerline)});
  write_fmt(std::cout, "(1x,a)", {trim(in.noticeline)});
}

int opening_menu(BatchFile& batch) {
  write_fmt(std::cout, "(a)", {"  Choose 0 to read the warranty disclaimer "});
  write_fmt(std::cout, "(a)", {"         1 to run VARDEL in interactive mode "});
  write_fmt(std::cout, "(a)", {"         2 to create input file for batch job"});
  int choice = 1;
  integer_prompt("Input your choice", choice, 0, 2);
  write_list(std::cout, {});
  if (choice == 0) {
    for (const char* line : kWarranty) write_list(std::cout, {line});
    stop_run(0);
  }
  if (choice == 2) open_batch_file(batch);
  return choice;
}

void ask_output_file(int menu, BatchFile& batch) {
  Init& in = init();
  FileQuestion question;
  question.prompt = "  Enter a name of file to store tree construction results: ";
  question.output_file = true;
  if (menu == 2) {
    question.taken.push_back({fixed_text(batch.name(), kFileNameLen),
                              "  This file name is already used by the input file for batch job."});
  }
  in.outfile = ask_file_name(question);
  if (menu == 2) batch.write_name_and_overwrite(in.outfile);
}

}  // namespace vardel
