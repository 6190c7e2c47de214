# The C++ examples of the README are docs/*.cpp, which the packaging test builds and runs.
cmake_minimum_required(VERSION 3.25)

file(READ ${SOURCE_DIR}/README.md readme)
file(GLOB examples ${SOURCE_DIR}/docs/*.cpp)
foreach(path IN LISTS examples)
  file(READ ${path} example)
  string(FIND "${readme}" "```cpp\n${example}```" position)
  if(position EQUAL -1)
    message(FATAL_ERROR "README.md: a C++ example differs from ${path}")
  endif()
endforeach()
