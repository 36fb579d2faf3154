// vardel: grows classification trees from a table of cases.
#include "run/run_program.hpp"

int main() {
  return vardel::run_program();
}
