#include "tree/scratch_file.hpp"

#include <iostream>

#include "run/stop.hpp"

namespace vardel {

namespace {

[[noreturn]] void scratch_failure(const char* what) {
  std::cout << "  ***ERROR*** Tree scratch file: " << what << std::endl;
  stop_run(1);
}

}  // namespace

void ScratchFile::open() {
  close();
  file_ = std::tmpfile();
  if (file_ == nullptr) scratch_failure("cannot be created");
}

void ScratchFile::close() {
  if (file_ != nullptr) {
    std::fclose(file_);
    file_ = nullptr;
  }
}

void ScratchFile::ensure_open() {
  if (file_ == nullptr) open();
}

void ScratchFile::rewind() {
  ensure_open();
  std::fseek(file_, 0, SEEK_SET);
}

long ScratchFile::position() const {
  return file_ == nullptr ? 0 : std::ftell(file_);
}

void ScratchFile::seek(long offset) {
  ensure_open();
  std::fseek(file_, offset, SEEK_SET);
}

void ScratchFile::write_int(std::int32_t v) {
  ensure_open();
  if (std::fwrite(&v, sizeof v, 1, file_) != 1) scratch_failure("write failed");
}

void ScratchFile::write_doubles(std::span<const double> v) {
  ensure_open();
  if (v.empty()) return;
  if (std::fwrite(v.data(), sizeof(double), v.size(), file_) != v.size())
    scratch_failure("write failed");
}

std::int32_t ScratchFile::read_int() {
  ensure_open();
  std::int32_t v = 0;
  if (std::fread(&v, sizeof v, 1, file_) != 1) scratch_failure("read past its end");
  return v;
}

void ScratchFile::read_doubles(std::span<double> v) {
  ensure_open();
  if (v.empty()) return;
  if (std::fread(v.data(), sizeof(double), v.size(), file_) != v.size())
    scratch_failure("read past its end");
}

}  // namespace vardel
