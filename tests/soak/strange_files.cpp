#include "tests/soak/strange_files.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace vireon::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 6> kExtensions{".wfm", ".trd", ".txt", ".xls", ".bmp", ".png"};
constexpr int kDifferent = 3;  // of each kind and extension
constexpr int kLongList = 3000;

std::string wholeFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string damaged(std::string bytes, Dice& dice) {
  if (bytes.empty() || dice.oneIn(3)) {
    return bytes.substr(
        0, bytes.empty() ? 0 : static_cast<std::size_t>(dice.below(static_cast<int>(bytes.size()))));
  }
  for (int left = dice.between(1, 20); left > 0; --left) {
    bytes[static_cast<std::size_t>(dice.below(static_cast<int>(bytes.size())))] =
        static_cast<char>(dice.below(256));
  }
  return bytes;
}

std::string foreign(Dice& dice) {
  std::string bytes(static_cast<std::size_t>(dice.below(dice.oneIn(10) ? 200'000 : 2000)), '\0');
  for (char& byte : bytes) {
    byte = static_cast<char>(dice.below(256));
  }
  return bytes;
}

std::string longList() {
  std::string text = "  R/No\tTime\tReading\t    Remarks\r\n";
  for (int row = 1; row <= kLongList; ++row) {
    text += std::to_string(row) + "\t12:00:00\t+1.234 V\tDC\r\n";
  }
  return text;
}

}  // namespace

void putStrangeFile(Stage& stage, Dice& dice) {
  const PaintWatch::OwnWork own(stage.paints);
  const std::string extension = dice.pick(kExtensions);
  const std::string number = std::to_string(dice.below(kDifferent));
  std::error_code ignored;
  if (!fs::exists(stage.folder)) {
    return;
  }
  if (const int kind = dice.below(10); kind < 6) {
    std::vector<std::string> saved;
    for (const std::string& name : stage.files.list(stage.folder.string())) {
      if (stage.files.saved((stage.folder / name).string()) && !name.ends_with(".ini")) {
        saved.push_back(name);
      }
    }
    if (!saved.empty()) {
      const fs::path source = stage.folder / dice.pick(saved);
      const fs::path path = stage.folder / ("theirs_spoilt" + number + source.extension().string());
      stage.act("damage a copy of " + source.filename().string());
      stage.files.forget(path.string());
      std::ofstream(path, std::ios::binary) << damaged(wholeFile(source), dice);
    }
  } else if (kind < 8) {
    const fs::path path = stage.folder / ("theirs_foreign" + number + extension);
    stage.act("a foreign file " + path.filename().string());
    stage.files.forget(path.string());
    std::ofstream(path, std::ios::binary) << foreign(dice);
  } else if (kind == 8) {
    const fs::path path = stage.folder / "theirs_long.txt";
    stage.act("a long list");
    stage.files.forget(path.string());
    std::ofstream(path, std::ios::binary) << longList();
  } else {
    stage.act("a folder and a dead link");
    fs::create_directory(stage.folder / ("theirs_folder" + extension), ignored);
    fs::create_symlink("nowhere", stage.folder / ("theirs_link" + extension), ignored);
  }
}

void clearFolder(Stage& stage) {
  stage.files.forgetAll();
  clearFolder(stage.folder);
}

void clearFolder(const fs::path& folder) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() != ".ini") {
      fs::remove(entry.path(), ignored);
    }
  }
}

}  // namespace vireon::soak
