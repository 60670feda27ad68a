#include "files/print_out.h"

#include "files/file_names.h"
#include "files/save_failure.h"

namespace vireon::files {
namespace {

constexpr const char* kPdfExtension = ".pdf";

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

void PrintOut::savePdf(const Kind& kind, platform::MessageBoxes& messages, const std::string& document) {
  const std::string stem = kind.prefix + dateTimeText(clock_.now());
  const std::string path = folder_ + "/" + freeName(files_, folder_, stem, kPdfExtension) + kPdfExtension;
  const platform::FileReplace result = files_.replace(path, document);
  if (result == platform::FileReplace::kDone) {
    messages.show({"Print", "No printer is installed. The document was saved as\n" + path,
                   platform::MessageIcon::kInformation});
  } else {
    messages.show(saveFailure("Print", path, result));
  }
}

}  // namespace vireon::files
