#include "run/file_question.hpp"

#include <cstdio>
#include <iostream>

#include "numerics/format.hpp"
#include "run/console.hpp"
#include "run/prompting.hpp"

namespace vardel {

bool create_new_file(std::string_view name) {
  const std::string path(trim(name));
  std::FILE* f = std::fopen(path.c_str(), "wx");
  if (f == nullptr) return false;
  std::fclose(f);
  return true;
}

bool replace_file(std::string_view name) {
  const std::string path(trim(name));
  std::FILE* f = std::fopen(path.c_str(), "w");
  if (f == nullptr) return false;
  std::fclose(f);
  return true;
}

std::string ask_file_name(const FileQuestion& question) {
  for (;;) {
    write_fmt(std::cout, "(a)", {question.prompt}, Advance::no);
    const std::string name = read_file_name(question.prompt);
    if (create_new_file(name)) {
      write_list(std::cout, {});
      return name;
    }
    bool refused = false;
    for (const NameInUse& other : question.taken) {
      if (text_equal(name, other.name)) {
        write_fmt(std::cout, "(a)", {other.message});
        write_fmt(std::cout, "(a)", {"  Please try other file name."});
        write_list(std::cout, {});
        refused = true;
        break;
      }
    }
    if (refused) continue;
    write_fmt(std::cout, "(a)",
              {question.output_file ? "  A file by that name already exists."
                                    : "  A file by that name already exists"});
    int choice = 1;
    integer_prompt("Input 1 to overwrite it, 2 to choose another name", choice, 1, 2);
    write_list(std::cout, {});
    if (choice == 1 && replace_file(name)) return name;
  }
}

}  // namespace vardel
