// The question for the name of a file the run will write.
//
// The file is created new. If that fails, the name is checked against the
// other files of the run, in the given order; a match is refused with its
// message and the name asked again. Otherwise the file is taken to exist and
// the user may overwrite it or choose another name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vardel {

struct NameInUse {
  std::string name;     // an 80-character file name of the run
  std::string message;  // shown when the answer equals it
};

struct FileQuestion {
  std::string prompt;
  std::vector<NameInUse> taken;
  bool output_file = false;  // the output file's message ends with a full stop
};

// Asks until a file is created; returns its name as an 80-character text.
// The file is left existing, empty, and closed.
std::string ask_file_name(const FileQuestion& question);

// Creates a file only if it does not exist; false if it exists or cannot be made.
bool create_new_file(std::string_view name);
// Creates or empties a file.
bool replace_file(std::string_view name);

}  // namespace vardel
