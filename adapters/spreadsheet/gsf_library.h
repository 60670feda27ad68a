#pragma once

#include <glib-object.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <memory>

namespace vireon::adapters {

// What is used of libgsf, and of GObject below it.
struct GsfLibrary {
  decltype(&::gsf_input_memory_new) inputMemoryNew = nullptr;
  decltype(&::gsf_input_size) inputSize = nullptr;
  decltype(&::gsf_input_read) inputRead = nullptr;
  decltype(&::gsf_infile_msole_new) infileNew = nullptr;
  decltype(&::gsf_infile_num_children) infileChildren = nullptr;
  decltype(&::gsf_infile_name_by_index) infileName = nullptr;
  decltype(&::gsf_infile_child_by_index) infileChild = nullptr;
  decltype(&::gsf_output_memory_new) outputMemoryNew = nullptr;
  decltype(&::gsf_output_memory_get_bytes) outputBytes = nullptr;
  decltype(&::gsf_output_size) outputSize = nullptr;
  decltype(&::gsf_output_write) outputWrite = nullptr;
  decltype(&::gsf_output_close) outputClose = nullptr;
  decltype(&::gsf_outfile_msole_new) outfileNew = nullptr;
  decltype(&::gsf_outfile_msole_set_class_id) outfileSetClass = nullptr;
  decltype(&::gsf_outfile_new_child) outfileChild = nullptr;
  decltype(&::g_object_unref) unref = nullptr;

  // The one that the headers are of.
  static constexpr const char* kName = "libgsf-1.so.114";

  // Loads and starts the library. Null where it is not installed.
  static std::unique_ptr<const GsfLibrary> load(const char* name);
};

}  // namespace vireon::adapters
