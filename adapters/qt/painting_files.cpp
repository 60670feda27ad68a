#include "adapters/qt/painting_files.h"

namespace vireon::adapters {

bool PaintingFiles::exists(const std::string& path) {
  bool found = false;
  worker_.run([&] { found = files_.exists(path); });
  return found;
}

std::vector<std::string> PaintingFiles::list(const std::string& folder) {
  std::vector<std::string> names;
  worker_.run([&] { names = files_.list(folder); });
  return names;
}

platform::FileReadResult PaintingFiles::read(const std::string& path, std::size_t limit) {
  platform::FileReadResult result;
  worker_.run([&] { result = files_.read(path, limit); });
  return result;
}

platform::FileReplace PaintingFiles::replace(const std::string& path, std::string_view bytes) {
  auto outcome = platform::FileReplace::kFailed;
  worker_.run([&] { outcome = files_.replace(path, bytes); });
  return outcome;
}

}  // namespace vireon::adapters
