#include "tests/desktop/print/print_service.h"

#include <grp.h>
#include <poll.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace vireon::tests {
namespace {

constexpr int kLooks = 3000;
constexpr int kLook = 10;  // milliseconds between two looks

constexpr const char* kPrinterDescription = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*Manufacturer: "Test"
*ModelName: "PDF file"
*ShortNickName: "PDF file"
*NickName: "PDF file"
*PCFileName: "PDFFILE.PPD"
*Product: "(PDF file)"
*PSVersion: "(3010) 0"
*ColorDevice: True
*DefaultColorSpace: RGB
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
*OpenUI *PageSize/Page Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Page Region: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "36 72 559 770"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
)ppd";

// The service gives its work to an account without rights where it runs with all of them.
constexpr const char* kAccount = "lp";

}  // namespace

bool PrintService::canStart() {
  return areInstalled({"cupsd", "lpadmin", "lpstat", "cupsreject", "pdftoppm", "pdftotext", "pdfinfo"}) &&
         std::filesystem::exists("/usr/lib/cups/filter/pdftopdf");
}

PrintService::PrintService() {
  configure();
  ::setenv("CUPS_SERVER", (folder_ / "socket").c_str(), 1);
  ::setenv("HOME", folder_.path().c_str(), 1);  // the account's own choice of a printer does not count
}

void PrintService::start() {
  if (service_ == nullptr) {
    service_ = std::make_unique<ChildProcess>(
        std::vector<std::string>{"/usr/sbin/cupsd", "-f", "-c", (folder_ / "cupsd.conf").string(), "-s",
                                 (folder_ / "cups-files.conf").string()});
    waitUntilUp();
  }
  outputOf({"/usr/sbin/lpadmin", "-x", "Paper"});
  std::filesystem::remove(file());
}

void PrintService::configure() {
  const std::string folder = folder_.path().string();
  std::ofstream files(folder_ / "cups-files.conf");
  files << "ServerRoot " << folder << "\nFileDevice Yes\n";
  for (const char* const place : {"StateDir", "RequestRoot", "CacheDir", "TempDir", "ServerKeychain"}) {
    std::filesystem::create_directory(folder_ / place);
    files << place << ' ' << folder << '/' << place << '\n';
  }
  for (const char* const log : {"ErrorLog", "AccessLog", "PageLog"}) {
    files << log << ' ' << folder << '/' << log << '\n';
  }
  files << "User " << kAccount << "\nGroup " << kAccount << "\nSystemGroup lpadmin\n";
  std::ofstream(folder_ / "cupsd.conf") << "Listen " << folder << "/socket\n"
                                        << "Browsing Off\nWebInterface No\nDefaultAuthType None\n"
                                        << "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                        << "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n"
                                        << "</Limit>\n</Policy>\n";
  std::ofstream(folder_ / "printer.ppd") << kPrinterDescription;
  if (::geteuid() != 0) return;
  const passwd* const account = ::getpwnam(kAccount);
  if (account == nullptr) throw std::runtime_error("no account for printing");
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  const auto give = [&](const std::filesystem::path& path) {
    if (::chown(path.c_str(), account->pw_uid, account->pw_gid) != 0) throw std::runtime_error("no rights");
  };
  give(folder_.path());
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) give(entry.path());
}

void PrintService::waitUntilUp() {
  for (int look = 0; look < kLooks && service_->running(); ++look) {
    const auto told = outputOf({"lpstat", "-r"});
    if (told && told->find("is running") != std::string::npos) return;
    ::poll(nullptr, 0, kLook);
  }
  throw std::runtime_error("the print service does not start");
}

void PrintService::addPrinter() {
  if (!outputOf({"/usr/sbin/lpadmin", "-p", "Paper", "-E", "-v", "file://" + file().string(), "-P",
                 (folder_ / "printer.ppd").string()}) ||
      !outputOf({"/usr/sbin/lpadmin", "-d", "Paper"})) {
    throw std::runtime_error("no printer");
  }
}

void PrintService::refuse() {
  outputOf({"/usr/sbin/cupsreject", "Paper"});
}

std::string PrintService::printed() {
  for (int look = 0; look < kLooks; ++look) {
    const auto waiting = outputOf({"lpstat", "-W", "not-completed"});
    if (waiting && waiting->empty() && std::filesystem::exists(file())) return file().string();
    ::poll(nullptr, 0, kLook);
  }
  return {};
}

}  // namespace vireon::tests
