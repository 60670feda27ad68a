#include <cmath>
#include <string>
#include <variant>

#include "fuzz/program_rig.h"
#include "fuzz/saved_file.h"

namespace {

using vireon::app::Program;
using vireon::fuzz::require;

std::string bytesOf(vireon::app::MemoryFileStore& files, const std::string& name) {
  return files.read("/" + name, std::size_t{1} << 30U).bytes;
}

void checkWindow(const Program& program) {
  require(!program.state.uiBusy && !program.state.logTransfer);
  require(program.form.picScope.lines().size() <= 248);
  require(program.form.picTrd.lines().empty() || program.form.picTrd.lines().size() == 119);
  require(program.form.grdLog.rows() >= 13 && program.form.grdLog.columns() == 4);
  require(program.form.StatusBar1.panel(1) != "");
}

// What was loaded as a whole is saved and loaded again without a difference.
void checkTrend(Program& program, vireon::app::MemoryFileStore& files) {
  if (program.form.StatusBar1.panel(1) != "Loaded a.trd") {
    return;
  }
  program.form.txtFn[1].setText("b");
  program.fileCommands.cmdSave_Click(1);
  const std::string saved = bytesOf(files, "b.trd");
  require(!saved.empty());
  const auto points = program.state.trdBuf;
  program.fileCommands.openSaved("/b.trd");
  require(program.form.StatusBar1.panel(1) == "Loaded b.trd");
  require(program.state.trdBuf == points);
}

void checkList(Program& program, vireon::app::MemoryFileStore& files) {
  const vireon::form::Grid& list = program.form.grdLog;
  if (program.form.StatusBar1.panel(1) != "Loaded a.txt" || list.text(0, 0).empty() ||
      list.text(1, 0).empty()) {
    return;
  }
  // A control character that gives way to a blank may make a time of a text: the second file is the settled
  // one.
  for (const char* name : {"b", "c", "d"}) {
    program.form.txtFn[1].setText(name);
    program.fileCommands.cmdSave_Click(1);
    require(!bytesOf(files, std::string(name) + ".txt").empty());
    program.fileCommands.openSaved("/" + std::string(name) + ".txt");
  }
  require(bytesOf(files, "c.txt") == bytesOf(files, "d.txt"));
}

}  // namespace

// Saved files of any content, byte 0 the kind, through the window's commands and onto its pictures and list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  vireon::fuzz::ProgramRig rig;
  Program& program = rig.program;
  vireon::app::MemoryFileStore& files = rig.files;
  const std::string extension = vireon::fuzz::kExtensions[data[0] % vireon::fuzz::kExtensions.size()];
  files.replace("/a" + extension, std::string(data + 1, data + size));
  program.fileCommands.openSaved("/a" + extension);
  checkWindow(program);
  if (extension == ".trd") {
    checkTrend(program, files);
  } else if (extension == ".txt") {
    checkList(program, files);
  }
  return 0;
}
