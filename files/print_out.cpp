#include "files/print_out.h"

#include "files/save_failure.h"

namespace vireon::files {
namespace {

// "yymmdd_hhmmss"
std::string dateTimeText(const platform::CalendarTime& time) {
  std::string text;
  for (const int part : {time.year % 100, time.month, time.day, time.hour, time.minute, time.second}) {
    if (text.size() == 6) {
      text += '_';
    }
    text += static_cast<char>('0' + part / 10);
    text += static_cast<char>('0' + part % 10);
  }
  return text;
}

}  // namespace

void PrintOut::print(const Kind& kind, platform::MessageBoxes& messages,
                     const std::function<bool(platform::PrintDocument&)>& draw) {
  const auto document = printer_.begin();
  if (!draw(*document)) {
    return;
  }
  const std::string bytes = document->finish();
  const auto result = bytes.empty() ? platform::PrintResult::kRefused : printer_.print(kind.title, bytes);
  if (result == platform::PrintResult::kNoPrinter) {
    savePdf(kind, messages, bytes);
  } else if (result == platform::PrintResult::kRefused) {
    messages.show({"Print", "The printer did not take the document.", platform::MessageIcon::kExclamation});
  }
}

std::string PrintOut::newName(const char* prefix) {
  const std::string base = folder_ + "/" + prefix + dateTimeText(clock_.now());
  std::string path = base + ".pdf";
  for (int copy = 2; files_.exists(path); ++copy) {
    path = base + "_" + std::to_string(copy) + ".pdf";
  }
  return path;
}

void PrintOut::savePdf(const Kind& kind, platform::MessageBoxes& messages, const std::string& document) {
  const std::string path = newName(kind.prefix);
  const platform::FileReplace result = files_.replace(path, document);
  if (result == platform::FileReplace::kDone) {
    messages.show({"Print", "No printer is installed. The document was saved as\n" + path,
                   platform::MessageIcon::kInformation});
  } else {
    messages.show(saveFailure("Print", path, result));
  }
}

}  // namespace vireon::files
