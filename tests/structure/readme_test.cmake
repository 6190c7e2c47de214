# The C++ example of the README is docs/example.cpp, which the packaging test builds and runs.
cmake_minimum_required(VERSION 3.25)

file(READ ${SOURCE_DIR}/README.md readme)
file(READ ${SOURCE_DIR}/docs/example.cpp example)
string(FIND "${readme}" "```cpp\n${example}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "README.md: the C++ example differs from docs/example.cpp")
endif()
