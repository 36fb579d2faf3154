#include "data/read_testmisdata.hpp"

#include <stdexcept>

namespace vardel {

// Placeholders until the readers are written.
void read_testmisdata() { throw std::logic_error("read_testmisdata: not built yet"); }
void read_testmis_no_class() { throw std::logic_error("read_testmis_no_class: not built yet"); }

}  // namespace vardel
