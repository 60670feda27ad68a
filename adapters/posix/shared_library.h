#pragma once

#include <dlfcn.h>

namespace vireon::adapters {

// A library that is loaded when it is first wanted, and stays loaded. One that is linked brings along all
// that it needs, which every start would wait for.
class SharedLibrary {
 public:
  explicit SharedLibrary(const char* name) : handle_(::dlopen(name, RTLD_NOW | RTLD_LOCAL)) {}

  // False where the library, or this function of it or of what it brings along, is missing.
  template <class Function>
  bool find(const char* name, Function*& function) const {
    function = handle_ == nullptr ? nullptr : reinterpret_cast<Function*>(::dlsym(handle_, name));
    return function != nullptr;
  }

 private:
  void* handle_;
};

}  // namespace vireon::adapters
