#include "adapters/spreadsheet/gsf_library.h"

#include <mutex>

#include "adapters/posix/shared_library.h"

namespace vireon::adapters {

std::unique_ptr<const GsfLibrary> GsfLibrary::load(const char* name) {
  const SharedLibrary library(name);
  GsfLibrary gsf;
  decltype(&::gsf_init) init = nullptr;
  const bool whole =
      library.find("gsf_init", init) && library.find("gsf_input_memory_new", gsf.inputMemoryNew) &&
      library.find("gsf_input_size", gsf.inputSize) && library.find("gsf_input_read", gsf.inputRead) &&
      library.find("gsf_infile_msole_new", gsf.infileNew) &&
      library.find("gsf_infile_num_children", gsf.infileChildren) &&
      library.find("gsf_infile_name_by_index", gsf.infileName) &&
      library.find("gsf_infile_child_by_index", gsf.infileChild) &&
      library.find("gsf_output_memory_new", gsf.outputMemoryNew) &&
      library.find("gsf_output_memory_get_bytes", gsf.outputBytes) &&
      library.find("gsf_output_size", gsf.outputSize) && library.find("gsf_output_write", gsf.outputWrite) &&
      library.find("gsf_output_close", gsf.outputClose) &&
      library.find("gsf_outfile_msole_new", gsf.outfileNew) &&
      library.find("gsf_outfile_msole_set_class_id", gsf.outfileSetClass) &&
      library.find("gsf_outfile_new_child", gsf.outfileChild) && library.find("g_object_unref", gsf.unref);
  if (!whole) {
    return nullptr;
  }
  // Once for the process and never undone: another part of it may use the library too.
  static std::once_flag started;
  std::call_once(started, init);
  return std::make_unique<const GsfLibrary>(gsf);
}

}  // namespace vireon::adapters
