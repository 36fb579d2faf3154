// ScratchFile: the tree store's private binary file for one run.
//
// A temporary file that is deleted when closed. Records are written and read
// sequentially; the caller positions the file (rewind) between a dump and a
// restore. Read failures end the run: the file is the program's own.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>

namespace vardel {

class ScratchFile {
 public:
  ScratchFile() = default;
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() { close(); }

  void open();  // creates a fresh empty file, positioned at its start
  void close();
  bool is_open() const { return file_ != nullptr; }
  void rewind();
  long position() const;
  void seek(long offset);

  void write_int(std::int32_t v);
  void write_doubles(std::span<const double> v);
  std::int32_t read_int();
  void read_doubles(std::span<double> v);

 private:
  void ensure_open();
  std::FILE* file_ = nullptr;
};

}  // namespace vardel
