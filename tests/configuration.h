#pragma once

#include <algorithm>
#include <cerrno>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <tests/memory_registry.h>
#include <tests/temporary_folder.h>

#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/core/xml/xml_document.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/host.h>
#include <lwconfig/platform/message_box.h>

/// Expects the failure of that number from a call.
#define EXPECT_ERROR(number, ...) EXPECT_EQ(ErrorOf([&] { __VA_ARGS__; }).Number(), number)

namespace lwconfig::testing {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

enum class FileOperation { Kind, Read, List, Replace, Write, Commit, Remove, MakeFolders };

/// The host's files, where chosen operations on chosen paths fail.
class FaultyFiles final : public platform::Files {
 public:
  /// From now on the operation fails with the errno code for paths that end in `path`, or for the empty one.
  void Fail(FileOperation operation, std::string path, int code) {
    mFaults.push_back({operation, std::move(path), code});
  }
  void Heal() { mFaults.clear(); }
  /// From now on listings mark entries of this name as hidden.
  void Hide(std::string name) { mHidden.push_back(std::move(name)); }

  platform::EntryKind Kind(std::string_view path) override {
    return Host(FileOperation::Kind, path).Kind(path);
  }
  std::string Read(std::string_view path) override { return Host(FileOperation::Read, path).Read(path); }
  std::vector<platform::FolderEntry> List(std::string_view folder) override {
    auto entries = Host(FileOperation::List, folder).List(folder);
    for (auto& entry : entries) entry.IsHidden |= std::ranges::count(mHidden, entry.Name) > 0;
    return entries;
  }
  std::unique_ptr<platform::FileReplacement> Replace(std::string_view path) override {
    return std::make_unique<Replacement>(*this, path, Host(FileOperation::Replace, path).Replace(path));
  }
  std::unique_ptr<platform::FileReplacement> Supersede(std::string_view path,
                                                       std::string_view model) override {
    return std::make_unique<Replacement>(*this, path,
                                         Host(FileOperation::Replace, path).Supersede(path, model));
  }
  void Remove(std::string_view path) override { Host(FileOperation::Remove, path).Remove(path); }
  void MakeFolders(std::string_view folder) override {
    Host(FileOperation::MakeFolders, folder).MakeFolders(folder);
  }
  std::string NativePath(std::string_view path) override { return Native().NativePath(path); }
  std::string ProductPath(std::string_view hostPath) override { return Native().ProductPath(hostPath); }

 private:
  struct Replacement final : platform::FileReplacement {
    Replacement(FaultyFiles& files, std::string_view path, std::unique_ptr<platform::FileReplacement> inner)
        : Files(files), Path(path), Inner(std::move(inner)) {}
    void Write(std::string_view bytes) override {
      Files.Host(FileOperation::Write, Path);
      Inner->Write(bytes);
    }
    void Commit() override {
      Files.Host(FileOperation::Commit, Path);
      Inner->Commit();
    }
    FaultyFiles& Files;
    std::string Path;
    std::unique_ptr<platform::FileReplacement> Inner;
  };

  /// The host's files for an operation that does not fail.
  platform::Files& Host(FileOperation operation, std::string_view path) const {
    for (const auto& [failing, ending, code] : mFaults) {
      if (failing == operation && (ending.empty() ? path.empty() : path.ends_with(ending)))
        throw std::system_error(code, std::generic_category(), std::string(path));
    }
    return Native();
  }

  std::vector<std::tuple<FileOperation, std::string, int>> mFaults;
  std::vector<std::string> mHidden;
};

/// The surroundings of the process as a test wants them.
struct FixedSurroundings final : platform::Environment, platform::Folders {
  int DisplayWidth() override { return Width; }
  std::vector<std::string> ProcessArguments() override { return Arguments; }
  std::string ShellFolder(std::int32_t csidl) override { return csidl == 5 ? Documents : "wrong"; }
  std::string WindowsFolder() override { return Windows; }

  int Width = 1920;
  std::vector<std::string> Arguments;
  std::string Documents = "C:\\Docs";
  std::string Windows = "C:\\Windows";
};

/// A test with a configuration folder, registry, surroundings and message boxes of its own.
class ConfigurationTest : public ::testing::Test {
 protected:
  static constexpr const char* kProductKey = "Software\\Corvantis\\Lexiwend4";

  ConfigurationTest() {
    Folder.Write("Config/Namespaces/.keep", "");
    Folder.Write("Config/Templates/.keep", "");
    Register("ConfigPath", Path(""));
    mMessageBoxes =
        platform::SetMessageBoxHandler([this](const platform::Message& shown) { Messages.push_back(shown); });
    mDiagnostics =
        SetDiagnosticHandler([this](const Diagnostic& diagnostic) { Diagnostics.push_back(diagnostic); });
  }
  ~ConfigurationTest() override {
    ResetSharedSlots();
    platform::SetMessageBoxHandler(mMessageBoxes);
    SetDiagnosticHandler(mDiagnostics);
  }

  void Register(std::string_view name, std::string value) {
    Registry.Write(Hive::LocalMachine, kProductKey, name, {1, std::move(value)});
  }
  static std::string Product(const std::filesystem::path& path) {
    return platform::Files::Native().ProductPath(path.string());
  }
  /// The configuration folder in the product's notation, without trailing backslash.
  std::string ConfigFolder() const { return Product(Folder.Path() / "Config"); }
  /// A path below it.
  std::string Path(const std::string& relative) const { return ConfigFolder() + "\\" + relative; }
  void Write(std::string_view relative, std::string_view content) const {
    Folder.Write("Config/" + std::string(relative), content);
  }
  std::string Read(std::string_view relative) const { return Folder.Read("Config/" + std::string(relative)); }
  bool Exists(std::string_view relative) const {
    return std::filesystem::exists(Folder.Path() / "Config" / relative);
  }
  void Remove(std::string_view relative) const {
    std::filesystem::remove_all(Folder.Path() / "Config" / relative);
  }

  /// The messages since the last call, as "icon title: text".
  std::string Shown() {
    std::string all;
    for (const auto& [title, text, icon] : std::exchange(Messages, {}))
      all += std::to_string(static_cast<int>(icon)) + " " + title + ": " + text;
    return all;
  }

  TemporaryFolder Folder;
  MemoryRegistry Registry;
  FaultyFiles Files;
  FixedSurroundings Surroundings;
  std::vector<platform::Message> Messages;
  std::vector<Diagnostic> Diagnostics;

 private:
  platform::ScopedHost<platform::Registry> mRegistryScope{Registry};
  platform::ScopedHost<platform::Files> mFilesScope{Files};
  platform::ScopedHost<platform::Environment> mEnvironmentScope{Surroundings};
  platform::ScopedHost<platform::Folders> mFoldersScope{Surroundings};
  platform::MessageBoxHandler mMessageBoxes;
  DiagnosticHandler mDiagnostics;
};

inline XMLElement Parse(std::string text) {
  XMLDocument document;
  document.LoadXML(std::move(text));
  return document.RootElement();
}

/// The text of a document in the form in which documents are written.
inline std::string Normal(std::string text) {
  XMLDocument document;
  EXPECT_TRUE(document.LoadXML(std::move(text)));
  return document.XML();
}

/// The document that `object` saves itself as, in that form.
template <class T>
std::string Saved(const T& object, std::string_view tag = {}) {
  XMLDocument document;
  XMLElement root = document.RootElement();
  if (!tag.empty()) root.SetName(tag);
  object.Save(root);
  return Normal(document.XML());
}

/// Loads each attribute in a table of lines "read -> saved | read -> saved", and expects to see it in what
/// `load(attributes)` then saves.
template <class Load>
void ExpectSavedAttributes(std::string_view table, Load load) {
  for (const auto line : Split(table, "\n")) {
    for (const auto row : Split(line, " | ")) {
      const auto sides = Split(row, " -> ");
      if (sides.size() != 2) continue;
      std::string saved = " " + std::string(sides[1]) + " ";
      std::replace(saved.begin(), saved.end(), '\'', '"');
      EXPECT_THAT(Saved(*load(std::string(sides[0]))), ::testing::HasSubstr(saved)) << row;
    }
  }
}

/// Expects `derive` to give the texts between the bars for "0", "1" and so on.
template <class Derive>
void ExpectDerived(std::string_view texts, Derive derive) {
  int number = 0;
  for (const auto text : Split(texts, "|")) {
    const std::string from = std::to_string(number++);
    EXPECT_EQ(derive(from), text) << from;
  }
}

/// The failure that `work` ends with.
template <class Work>
Error ErrorOf(Work work) {
  try {
    work();
  } catch (const Error& failure) {
    return failure;
  }
  ADD_FAILURE() << "nothing failed";
  return Error(0, "nothing failed");
}

/// Matches the failure of that number whose text begins so, in most cases with its place in a file.
inline auto IsError(std::int32_t number, const std::string& start) {
  return ::testing::AllOf(::testing::Property(&Error::Number, number),
                          ::testing::Property(&Error::what, StartsWith(start)));
}

/// `member` of every item, in order.
template <class Items, class Member>
auto Each(const Items& items, Member member) {
  std::vector<std::decay_t<decltype(std::invoke(member, **items.begin()))>> values;
  for (const auto& item : items) values.push_back(std::invoke(member, *item));
  return values;
}

inline std::vector<std::string> Texts(const Collection& collection) {
  return {collection.begin(), collection.end()};
}

}  // namespace lwconfig::testing
