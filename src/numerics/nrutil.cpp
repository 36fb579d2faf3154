// Fatal checks shared by the numerical routines: nrerror and assert_eq2.
#include "numerics/nrutil.hpp"

#include <iostream>

#include "run/stop.hpp"

namespace vardel {

void nrerror(std::string_view text) {
  std::cout << "nrerror: " << text << '\n' << "program terminated by nrerror\n";
  std::cout.flush();
  stop_run(1);
}

std::size_t assert_eq2(std::size_t n1, std::size_t n2, std::string_view tag) {
  if (n1 == n2) return n1;
  std::cout << "nrerror: an assert_eq failed with this tag:\n"
            << tag << '\n'
            << "program terminated by assert_eq2\n";
  std::cout.flush();
  stop_run(1);
}

}  // namespace vardel
