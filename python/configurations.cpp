#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <python/configurations.h>
#include <python/failures.h>
#include <python/values.h>

#include <lwconfig/checking/check_configuration.h>
#include <lwconfig/configuration_scope.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/paths/object_model.h>
#include <lwconfig/paths/path_error.h>
#include <lwconfig/transaction/transaction.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

py::object TextOrNone(const std::string& text) {
  return text.empty() ? py::object(py::none()) : py::object(ToPythonText(text));
}

py::object FileOf(const Diagnostic& problem) {
  const std::string& file = problem.Position.File;
  return TextOrNone(file.empty() ? file : NativePath(file));
}

py::str Representation(const Diagnostic& problem) {
  std::string place = problem.Position.File.empty() ? "" : NativePath(problem.Position.File) + ":";
  if (problem.Position.Line > 0)
    place += std::to_string(problem.Position.Line) + ":" + std::to_string(problem.Position.Column) + ":";
  return ToPythonText("<lwconfig.Problem " + place + (place.empty() ? "" : " ") + problem.Message + " [" +
                      KindOf(problem.Problem).Code + "]>");
}

void AddProblems(py::module_& module) {
  const auto kind = [](const Diagnostic& problem) -> const ProblemKind& { return KindOf(problem.Problem); };
  py::class_<Diagnostic>(module, "Problem")
      .def_property_readonly("code", [kind](const Diagnostic& problem) { return kind(problem).Code; })
      .def_property_readonly(
          "severity", [kind](const Diagnostic& problem) { return SeverityName(kind(problem).Severity); })
      .def_property_readonly("file", &FileOf)
      .def_property_readonly("line",
                             [](const Diagnostic& problem) { return PlaceOrNone(problem.Position.Line); })
      .def_property_readonly("column",
                             [](const Diagnostic& problem) { return PlaceOrNone(problem.Position.Column); })
      .def_property_readonly("path", [](const Diagnostic& problem) { return TextOrNone(problem.ModelPath); })
      .def_property_readonly("message",
                             [](const Diagnostic& problem) { return ToPythonText(problem.Message); })
      .def_property_readonly("suggestion",
                             [](const Diagnostic& problem) { return TextOrNone(problem.Suggestion); })
      .def_readonly("count", &Diagnostic::Count)
      .def("__repr__", &Representation);
}

std::string FolderFrom(py::handle folder) {
  std::string path = FromPythonPath(folder);
  if (path.empty()) throw Error(kPathNotFound, "The name of the folder is empty");
  return path;
}

py::list Check(const py::object& folder) {
  py::list problems;
  for (Diagnostic& problem :
       CheckConfiguration(folder.is_none() ? std::string() : FolderFrom(folder)).Problems)
    problems.append(std::move(problem));
  return problems;
}

/// Raises the failures of what it reads.
class RaisingListener final : public ModelListener {
 public:
  void Fail(const Error& failure) override { throw failure; }
  void Note(std::string_view /*text*/) override {}
  bool IsClean() const override { return true; }
};

py::object Find(const std::string& path) {
  try {
    RaisingListener listener;
    const PathTarget found = ObjectModel(listener).Follow(ParsePath(path));
    return ToPython(found.Value, found.Type);
  } catch (const PathError& error) {
    if (error.Kind() == PathErrorKind::NotFound) throw py::key_error(error.what());
    throw py::value_error(error.what());
  }
}

/// The scopes that are open, the innermost last. Scopes replace services of the process, so that they close
/// in the reverse order of their opening. One whose block is destroyed before an inner one waits for that.
struct OpenScope {
  std::shared_ptr<void> Scope;
  bool IsAbandoned = false;
};

std::vector<OpenScope>& OpenScopes() {
  static std::vector<OpenScope> scopes;
  return scopes;
}

void CloseInnermost() {
  auto& scopes = OpenScopes();
  do scopes.pop_back();
  while (!scopes.empty() && scopes.back().IsAbandoned);
}

/// A `with` block over a scope of the library.
template <class Scope>
class Block {
 public:
  Block() = default;
  ~Block() {
    if (!mScope) return;
    if (IsInnermost()) {
      Close();
    } else {
      for (OpenScope& open : OpenScopes()) open.IsAbandoned |= open.Scope == mScope;
    }
  }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  template <class... Arguments>
  Scope& Enter(Arguments&&... arguments) {
    if (mScope) throw Error(kInvalidCall, "The block is entered already");
    mScope = std::make_shared<Scope>(std::forward<Arguments>(arguments)...);
    OpenScopes().push_back({mScope});
    return *mScope;
  }
  void Leave() {
    CheckInnermost();
    Close();
  }
  Scope& Open() const {
    if (!mScope) throw Error(kInvalidCall, "The block is not entered, or left");
    return *mScope;
  }
  void CheckInnermost() const {
    if (Open(); !IsInnermost()) throw Error(kInvalidCall, "A block inside this one is open");
  }
  /// Error 5 where a block around this one is gone: nobody would write what this one commits.
  void CheckOuter() const {
    if (std::ranges::any_of(OpenScopes(), &OpenScope::IsAbandoned))
      throw Error(kInvalidCall, "A block around this one was left before it; nothing is written");
  }

 private:
  void Close() {
    mScope.reset();
    CloseInnermost();
  }
  bool IsInnermost() const { return OpenScopes().back().Scope == mScope; }

  std::shared_ptr<Scope> mScope;
};

class ConfigurationBlock : public Block<ConfigurationScope> {
 public:
  explicit ConfigurationBlock(std::string folder) : mFolder(std::move(folder)) {}
  py::object EnterRoot() {
    Enter(mFolder);
    return py::module_::import("lwconfig").attr("Root")();
  }

 private:
  std::string mFolder;
};

class TransactionBlock : public Block<Transaction> {
 public:
  void Commit() {
    CheckInnermost();
    CheckOuter();
    Open().Commit();
  }
  void RollBack() {
    CheckInnermost();
    Open().RollBack();
  }
  /// Commits, or rolls back after an exception. A failing commit changes nothing.
  void Exit(bool isFailing) {
    CheckInnermost();
    try {
      if (Open().IsOpen()) isFailing ? Open().RollBack() : Commit();
    } catch (const Error&) {
      Open().RollBack();
      Leave();
      throw;
    }
    Leave();
  }
};

}  // namespace

void AddConfigurations(py::module_& module) {
  AddProblems(module);
  module.def("check", &Check, py::arg("folder") = py::none(),
             "The problems of the configuration in a folder, or of the registered one, as a list.");
  module.def("find", &Find, py::arg("path"), "The object or value at a path from the root.");
  py::class_<ConfigurationBlock>(module, "_Configuration")
      .def("__enter__", &ConfigurationBlock::EnterRoot)
      .def("__exit__", [](ConfigurationBlock& self, const py::args&) { self.Leave(); });
  module.def(
      "configuration",
      [](py::handle folder) { return std::make_unique<ConfigurationBlock>(FolderFrom(folder)); },
      py::arg("folder"), "A with block in which this process uses the configuration in a folder.");
  py::class_<TransactionBlock>(module, "Transaction")
      .def("__enter__",
           [](const py::object& self) {
             self.cast<TransactionBlock&>().Enter();
             return self;
           })
      .def("__exit__", [](TransactionBlock& self, const py::object& kind, const py::object&,
                          const py::object&) { self.Exit(!kind.is_none()); })
      .def(
          "difference", [](const TransactionBlock& self) { return ToPythonText(self.Open().Difference()); },
          "The changes as a unified diff.")
      .def("commit", &TransactionBlock::Commit, "Writes the changes now; later saves are written at once.")
      .def("roll_back", &TransactionBlock::RollBack, "Drops the changes; later saves are written at once.");
  module.def(
      "transaction", [] { return std::make_unique<TransactionBlock>(); },
      "A with block whose saves are written together when it is left, or not at all.");
}

}  // namespace lwconfig::python
