// The advanced dialogue: the questions of option level 2, from the split type
// to the allCLEAR file.
//
// Reads the answers on standard input, sets the run settings and, when a
// batch file is being written, records every answer there on its own line in
// the order asked. Reads nclass, nobs, noc, clabel, misslearn and the file
// names already known to the run.
#pragma once

#include "run/batch_file.hpp"

namespace vardel {

enum class DialogueEnd {
  complete,  // every question up to the allCLEAR question was reached
  early,     // left at the pruning-sample imputation step: no latex or allCLEAR question
};

// `batch` is the batch file being written (menu answer 2), or null.
DialogueEnd advanced_dialogue(BatchFile* batch);

}  // namespace vardel
