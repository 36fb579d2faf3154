#include "report/exitprog.hpp"

#include <iostream>
#include <string>

#include "numerics/format.hpp"
#include "run/stop.hpp"

namespace vardel {

void exitprog() {
  write_fmt(std::cout, "(/,a)", {"  Press ENTER or RETURN to quit"});
  std::cout.flush();
  std::string ignored;
  std::getline(std::cin, ignored);  // the end of input is as good as ENTER here
  stop_run(0);
}

}  // namespace vardel
