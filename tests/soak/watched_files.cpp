#include "tests/soak/watched_files.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace vireon::soak {

using platform::FileReadError;
using platform::FileReplace;

WatchedFiles::WatchedFiles(std::filesystem::path folder, ActLog& log, PaintWatch& paints)
    : folder_(std::move(folder)), log_(log), paints_(paints) {}

platform::FileReadResult WatchedFiles::read(const std::string& path, std::size_t limit) {
  if (reading_ != FileReadError::kNone && disk().exists(path)) {
    ++failures_;
    return {{}, reading_};
  }
  auto result = disk().read(path, limit);
  loads_ += result.error == FileReadError::kNone && !path.ends_with(".ini") ? 1U : 0U;
  const auto known = saved_.find(path);
  if (result.error == FileReadError::kNone && known != saved_.end() && known->second != result.bytes) {
    log_.finding("a saved file reads otherwise: " + path);
  }
  return result;
}

FileReplace WatchedFiles::replace(const std::string& path, std::string_view bytes) {
  if (!isInside(path)) {
    // A dialog may have led elsewhere; a name in a box may not.
    if (path.starts_with(folder_.string())) {
      log_.finding("a name led out of the folder: " + path);
    }
    return FileReplace::kNoPermission;
  }
  if (writing_ != FileReplace::kDone) {
    ++failures_;
    return writing_;
  }
  const FileReplace result = disk().replace(path, bytes);
  const PaintWatch::OwnWork own(paints_);
  if (result == FileReplace::kDone) {
    ++saves_;
    if (onDisk(path) != bytes) {
      log_.finding("a save went wrong without a word: " + path);
    }
    saved_[path] = bytes;
  } else {
    ++failures_;
    const auto known = saved_.find(path);
    if (known != saved_.end() && std::filesystem::exists(folder_) && onDisk(path) != known->second) {
      log_.finding("a save that failed spoilt the old file: " + path);
    }
  }
  return result;
}

void WatchedFiles::setFaults(FileReadError reading, FileReplace writing) {
  reading_ = reading;
  writing_ = writing;
}

void WatchedFiles::checkAll() {
  for (const auto& [path, bytes] : saved_) {
    if (onDisk(path) != bytes) {
      log_.finding("a saved file has changed or gone: " + path);
    }
  }
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    const std::string path = entry.path().string();
    const std::string name = entry.path().filename().string();
    const bool known = name.starts_with("theirs") || name == "vireon.ini";
    if (!known && entry.is_regular_file() && !saved_.contains(path)) {
      log_.finding("something lies beside the saved files: " + path);
    }
  }
}

std::string WatchedFiles::onDisk(const std::string& path) const {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool WatchedFiles::isInside(const std::string& path) const {
  return std::filesystem::path(path).lexically_normal().parent_path() == folder_;
}

}  // namespace vireon::soak
