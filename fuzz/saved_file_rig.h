#pragma once

#include <string>

#include "fuzz/program_rig.h"

namespace vireon::fuzz {

// The program with a folder of saved files.
struct SavedFileRig : ProgramRig {
  // Opens "a" and the extension with this content; tells whether it was loaded as a whole.
  bool opens(const std::string& extension, const std::string& content) {
    ports.files.replace("/a" + extension, content);
    return reopens("a" + extension);
  }

  bool reopens(const std::string& name) {
    program.fileCommands.openSaved("/" + name);
    require(!program.state.uiBusy && !program.state.logTransfer);
    require(!program.form.StatusBar1.panel(1).empty());
    return program.form.StatusBar1.panel(1) == "Loaded " + name;
  }

  // The bytes of the file that the logger panel saves under this name.
  std::string savedAs(const std::string& name, const std::string& extension) {
    program.form.txtFn[1].setText(name);
    program.fileCommands.cmdSave_Click(1);
    const std::string bytes = ports.files.read("/" + name + extension, std::size_t{1} << 30U).bytes;
    require(!bytes.empty());
    return bytes;
  }
};

}  // namespace vireon::fuzz
