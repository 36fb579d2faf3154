#include "data/input_failure.hpp"

#include <iostream>

#include "numerics/format.hpp"
#include "run/stop.hpp"

namespace vardel {

void input_failure(std::string_view file, std::string_view item, const ReadResult& result) {
  std::cout << "\n  ***ERROR*** File " << trim(adjustl(file)) << ", line " << result.line << ": ";
  if (result.status == ReadStatus::end_of_file)
    std::cout << "the file ends where " << item << " should stand";
  else
    std::cout << "\"" << result.token << "\" cannot be read as " << item;
  std::cout << std::endl;
  stop_run(3);
}

}  // namespace vardel
