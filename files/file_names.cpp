#include "files/file_names.h"

#include <algorithm>
#include <utility>

#include "form/ascii.h"
#include "form/text_encoding.h"

namespace vireon::files {
namespace {

// Small letters of ASCII and of Latin-1, in UTF-8.
std::string inSmallLetters(std::string_view text) {
  std::string result(text);
  for (std::size_t at = 0; at < result.size(); ++at) {
    const auto former = static_cast<unsigned char>(at == 0 ? '\0' : result[at - 1]);
    const auto code = static_cast<unsigned char>(result[at]);
    if (former == 0xC3 && code >= 0x80 && code <= 0x9E && code != 0x97) {
      result[at] = static_cast<char>(code + 0x20);
    } else {
      result[at] = form::smallLetter(result[at]);
    }
  }
  return result;
}

bool hasControlCharacter(std::string_view utf8) {
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    const auto former = static_cast<unsigned char>(at == 0 ? '\0' : utf8[at - 1]);
    const auto code = static_cast<unsigned char>(utf8[at]);
    if (code < ' ' || code == 0x7F || (former == 0xC2 && code >= 0x80 && code <= 0x9F)) {
      return true;
    }
  }
  return false;
}

}  // namespace

std::string dateTimeText(const platform::CalendarTime& time) {
  std::string text;
  for (const int part : {time.year % 100, time.month, time.day, time.hour, time.minute, time.second}) {
    text += text.size() == 6 ? "_" : "";
    text += static_cast<char>('0' + part / 10);
    text += static_cast<char>('0' + part % 10);
  }
  return text;
}

std::string_view fileNameOf(std::string_view path) {
  const std::size_t separator = path.rfind('/');
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view baseNameOf(std::string_view path) {
  const std::string_view name = fileNameOf(path);
  return name.substr(0, name.find('.'));
}

std::string extensionOf(std::string_view path) {
  const std::string_view name = fileNameOf(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? "" : inSmallLetters(name.substr(dot));
}

bool isAllowedName(std::string_view name) {
  return name.find_first_of("/\\") == std::string_view::npos && name.find("..") == std::string_view::npos &&
         !hasControlCharacter(name);
}

std::string findFile(platform::FileStore& files, const std::string& folder, const std::string& name) {
  const std::string path = folder + "/" + name;
  if (files.exists(path)) {
    return path;
  }
  const std::vector<std::string> names = files.list(folder);
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& other) {
    return inSmallLetters(other) == inSmallLetters(name);
  });
  return found == names.end() ? path : folder + "/" + *found;
}

std::string freeName(platform::FileStore& files, const std::string& folder, const std::string& stem,
                     std::string_view extension) {
  std::string name = stem;
  const auto isTaken = [&] {
    std::string path = folder;
    path.append("/").append(name).append(extension);
    return files.exists(path);
  };
  for (int copy = 2; isTaken(); ++copy) {
    name = stem;
    name.append("_").append(std::to_string(copy));
  }
  return name;
}

FileNameBox::FileNameBox(form::TextBox& box, platform::FileStore& files, const platform::WallClock& clock,
                         std::string folder)
    : box_(box), files_(files), clock_(clock), folder_(std::move(folder)) {
  box_.onChange = [this] { made_ = false; };
}

void FileNameBox::clearPlaceholder() {
  if (box_.text() == kPlaceholder) {
    box_.setText("");
  }
}

bool FileNameBox::empty() const {
  return box_.text() == kPlaceholder || box_.text().find_first_not_of(' ') == std::string::npos;
}

void FileNameBox::make(const std::string& prefix, const std::string& extension) {
  box_.setText(freeName(files_, folder_, prefix + dateTimeText(clock_.now()), extension));
  made_ = true;
}

void FileNameBox::show(const std::string& name) {
  box_.setUtf8(name);
  made_ = false;
}

std::string FileNameBox::name() const {
  return empty() ? std::string() : box_.utf8();
}

}  // namespace vireon::files
