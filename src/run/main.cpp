// vardel: grows classification trees from a table of cases.
#include <iostream>

#include "run/stop.hpp"

int main() {
  try {
    std::cout << "  VARDEL v2.8\n";
    std::cout << "  Copyright (c) 2026 the VARDEL developers\n";
    return 0;
  } catch (const vardel::RunStopped& stop) {
    std::cout.flush();
    return stop.status;
  }
}
