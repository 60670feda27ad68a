# Warnings, sanitizers and the include root, as one interface that every target links.
add_library(vireon_options INTERFACE)
target_include_directories(vireon_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(vireon_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wdouble-promotion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports std::string's own operator+ (GCC bug 105651).
  target_compile_options(vireon_options INTERFACE -Wno-restrict)
endif()
# Files compiled together may have the same name at file scope of one and in a function of another.
target_compile_options(vireon_options INTERFACE $<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-shadow>)
if(VIREON_SANITIZE)
  target_compile_options(vireon_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # The standard library's own checks see an index past an array inside one object.
  target_compile_definitions(vireon_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(vireon_options INTERFACE -fsanitize=address,undefined)
endif()
