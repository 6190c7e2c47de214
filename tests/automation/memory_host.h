#pragma once

#include <cerrno>
#include <map>
#include <system_error>

#include <tests/memory_registry.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/folders.h>

namespace lwconfig::testing {

/// A small configuration in memory that never changes: writing succeeds and stores nothing.
class MemoryFiles final : public platform::Files {
 public:
  platform::EntryKind Kind(std::string_view path) override {
    if (mContents.contains(FoldCase(path))) return platform::EntryKind::File;
    return List(path).empty() ? platform::EntryKind::Missing : platform::EntryKind::Folder;
  }
  std::string Read(std::string_view path) override {
    const auto found = mContents.find(FoldCase(path));
    if (found == mContents.end()) throw std::system_error(ENOENT, std::generic_category());
    return found->second;
  }
  std::vector<platform::FolderEntry> List(std::string_view folder) override {
    std::string inside = FoldCase(folder);
    if (!inside.ends_with('\\')) inside += '\\';
    std::vector<platform::FolderEntry> entries;
    for (auto at = mContents.lower_bound(inside); at != mContents.end() && at->first.starts_with(inside);
         ++at) {
      const auto end = at->first.find('\\', inside.size());
      const auto kind = end == std::string::npos ? platform::EntryKind::File : platform::EntryKind::Folder;
      const std::string name = at->first.substr(inside.size(), end - inside.size());
      if (entries.empty() || entries.back().Name != name) entries.push_back({name, kind});
    }
    return entries;
  }
  std::unique_ptr<platform::FileReplacement> Replace(std::string_view path) override {
    struct Dropped final : platform::FileReplacement {
      void Write(std::string_view) override {}
      void Commit() override {}
    };
    if (path.empty()) throw std::system_error(ENOENT, std::generic_category());
    return std::make_unique<Dropped>();
  }
  std::unique_ptr<platform::FileReplacement> Supersede(std::string_view path, std::string_view) override {
    return Replace(path);
  }
  void Remove(std::string_view path) override { Read(path); }
  void MakeFolders(std::string_view) override {}
  std::string NativePath(std::string_view path) override { return std::string(path); }
  std::string ProductPath(std::string_view hostPath) override { return std::string(hostPath); }

 private:
  /// By paths in small letters.
  const std::map<std::string, std::string> mContents{
      {"c:\\config\\templates\\a\\config.xml",
       "<PageTemplate Name='A' Description=''><PageLayout Name='M' FileName='m.html' "
       "TitleTemplate='t' PageType='3'/><NamespaceDef Name='LW.Core'/></PageTemplate>"},
      {"c:\\config\\templates\\a\\m.html", "<html/>"},
      {"c:\\config\\namespaces\\core.xml", "<Profile Name='LW.Core'/>"},
      {"c:\\config\\externaldocs.xml",
       "<ExternalDocs><Namespace Name='System.*' URLFormat='u%%x%%'/></ExternalDocs>"}};
};

/// A whole host in memory. While it lives, no call reaches the real one.
class MemoryHost {
 public:
  MemoryHost() {
    mRegistry.Write(Hive::LocalMachine, "Software\\Corvantis\\Lexiwend4", "ConfigPath", {1, "C:\\Config\\"});
  }

 private:
  MemoryFiles mFiles;
  MemoryRegistry mRegistry;
  struct OneFolder final : platform::Folders {
    std::string ShellFolder(std::int32_t) override { return {}; }
    std::string WindowsFolder() override { return "C:\\WINDOWS"; }
  };
  OneFolder mFolders;
  platform::ScopedHost<platform::Files> mFilesScope{mFiles};
  platform::ScopedHost<platform::Registry> mRegistryScope{mRegistry};
  platform::ScopedHost<platform::Folders> mFoldersScope{mFolders};
};

}  // namespace lwconfig::testing
