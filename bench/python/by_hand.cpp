#include <string>

#include <pybind11/pybind11.h>

namespace {

struct Layout {
  std::string Name = "Method";
  int DependantCount = 7;
};

}  // namespace

/// A class as people bind one by hand, to compare with.
PYBIND11_MODULE(by_hand, module) {
  pybind11::class_<Layout>(module, "Layout")
      .def(pybind11::init<>())
      .def_readwrite("Name", &Layout::Name)
      .def_readwrite("DependantCount", &Layout::DependantCount);
}
