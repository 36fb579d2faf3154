#include "run/console.hpp"

#include <iostream>

#include "numerics/format.hpp"
#include "numerics/list_reader.hpp"
#include "run/init.hpp"
#include "run/stop.hpp"

namespace vardel {

void end_of_answers(std::string_view what) {
  std::cout << "\n  ***ERROR*** Standard input ended while waiting for an answer to: "
            << trim(adjustl(what)) << std::endl;
  stop_run(2);
}

std::string read_answer_line(std::string_view what) {
  std::cout.flush();
  std::string line;
  if (!std::getline(std::cin, line)) end_of_answers(what);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::string read_file_name(std::string_view what) {
  std::string name(kFileNameLen, ' ');
  for (;;) {
    const std::string line = read_answer_line(what);
    if (trim(adjustl(line)).empty()) continue;  // the read goes on over empty lines
    read_list(line, {text(name, kFileNameLen)});
    return name;
  }
}

}  // namespace vardel
