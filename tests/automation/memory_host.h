#pragma once

#include <cerrno>
#include <map>
#include <mutex>
#include <system_error>

#include <tests/memory_registry.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig::testing {

/// Files in memory. Folders are there as long as a file is in them.
class MemoryFiles final : public platform::Files {
 public:
  void Put(std::string_view path, std::string bytes) {
    const std::lock_guard lock(mMutex);
    mFiles[FoldCase(path)] = {std::string(path), std::move(bytes)};
  }

  platform::EntryKind Kind(std::string_view path) override {
    const std::lock_guard lock(mMutex);
    if (mFiles.contains(FoldCase(path))) return platform::EntryKind::File;
    const std::string folder = Inside(path);
    const auto first = mFiles.lower_bound(folder);
    return first != mFiles.end() && first->first.starts_with(folder) ? platform::EntryKind::Folder
                                                                     : platform::EntryKind::Missing;
  }
  std::string Read(std::string_view path) override {
    const std::lock_guard lock(mMutex);
    const auto found = mFiles.find(FoldCase(path));
    if (found == mFiles.end()) throw std::system_error(ENOENT, std::generic_category());
    return found->second.Bytes;
  }
  std::vector<platform::FolderEntry> List(std::string_view folder) override {
    if (Kind(folder) != platform::EntryKind::Folder) throw std::system_error(ENOENT, std::generic_category());
    const std::lock_guard lock(mMutex);
    const std::string inside = Inside(folder);
    std::map<std::string, platform::FolderEntry> entries;
    for (const auto& [folded, file] : mFiles) {
      if (!folded.starts_with(inside)) continue;
      const auto end = file.Path.find('\\', inside.size());
      const std::string name = file.Path.substr(inside.size(), end - inside.size());
      entries[FoldCase(name)] = {
          name, end == std::string::npos ? platform::EntryKind::File : platform::EntryKind::Folder};
    }
    std::vector<platform::FolderEntry> listed;
    for (const auto& [folded, entry] : entries) listed.push_back(entry);
    return listed;
  }
  std::unique_ptr<platform::FileReplacement> Replace(std::string_view path) override {
    if (path.empty()) throw std::system_error(ENOENT, std::generic_category());
    return std::make_unique<Replacement>(*this, std::string(path));
  }
  std::unique_ptr<platform::FileReplacement> Supersede(std::string_view path,
                                                       std::string_view /*model*/) override {
    return Replace(path);
  }
  void Remove(std::string_view path) override {
    const std::lock_guard lock(mMutex);
    if (mFiles.erase(FoldCase(path)) == 0) throw std::system_error(ENOENT, std::generic_category());
  }
  void MakeFolders(std::string_view /*folder*/) override {}
  std::string NativePath(std::string_view path) override { return std::string(path); }
  std::string ProductPath(std::string_view hostPath) override { return std::string(hostPath); }

 private:
  struct File {
    std::string Path;
    std::string Bytes;
  };
  struct Replacement final : platform::FileReplacement {
    Replacement(MemoryFiles& files, std::string path) : Files(files), Path(std::move(path)) {}
    void Write(std::string_view bytes) override { Bytes += bytes; }
    void Commit() override { Files.Put(Path, std::move(Bytes)); }
    MemoryFiles& Files;
    std::string Path;
    std::string Bytes;
  };

  static std::string Inside(std::string_view folder) {
    std::string folded = FoldCase(folder);
    if (!folded.ends_with('\\')) folded += '\\';
    return folded;
  }

  std::mutex mMutex;  // files are also read ahead
  std::map<std::string, File> mFiles;
};

/// A whole host in memory, with a small configuration. While it lives, no call reaches the real one.
class MemoryHost {
 public:
  MemoryHost() {
    mFiles.Put("C:\\Config\\Templates\\A\\config.xml",
               "<PageTemplate Name='A' Description=''><PageLayout Name='M' FileName='m.html' "
               "TitleTemplate='t' PageType='3'/><NamespaceDef Name='LW.Core'/></PageTemplate>");
    mFiles.Put("C:\\Config\\Templates\\A\\m.html", "<html/>");
    mFiles.Put("C:\\Config\\Namespaces\\core.xml", "<Profile Name='LW.Core'/>");
    mFiles.Put("C:\\Config\\externaldocs.xml",
               "<ExternalDocs><Namespace Name='System.*' URLFormat='u%%x%%'/></ExternalDocs>");
    mRegistry.Write(Hive::LocalMachine, "Software\\Corvantis\\Lexiwend4", "ConfigPath", {1, "C:\\Config\\"});
    mMessageBoxes = platform::SetMessageBoxHandler([](const platform::Message&) {});
  }
  ~MemoryHost() { platform::SetMessageBoxHandler(mMessageBoxes); }
  MemoryHost(const MemoryHost&) = delete;
  MemoryHost& operator=(const MemoryHost&) = delete;

 private:
  struct OneFolder final : platform::Folders {
    std::string ShellFolder(std::int32_t) override { return "C:\\Config"; }
    std::string WindowsFolder() override { return "C:\\WINDOWS"; }
  };

  MemoryFiles mFiles;
  MemoryRegistry mRegistry;
  OneFolder mFolders;
  platform::ScopedHost<platform::Files> mFilesScope{mFiles};
  platform::ScopedHost<platform::Registry> mRegistryScope{mRegistry};
  platform::ScopedHost<platform::Folders> mFoldersScope{mFolders};
  platform::MessageBoxHandler mMessageBoxes;
};

}  // namespace lwconfig::testing
