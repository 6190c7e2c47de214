#pragma once

#include <string_view>
#include <vector>

#include <lwconfig/core/files/damaged_files.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/load_listener.h>
#include <lwconfig/core/loading/progress.h>
#include <lwconfig/core/loading/read_ahead.h>
#include <lwconfig/core/xml/xml_document.h>

namespace lwconfig {

/// Reports the fault of a document that is not well-formed.
void ReportParseFailure(const XMLDocument& document);

/// Calls `use(file, root)` for a file that was read.
template <class Use>
void UseDocument(const DiskFile& file, XMLDocument document, Use& use) {
  const bool isDamaged = !document.ParseFailure().empty() && file.Exists();
  if (isDamaged) ReportParseFailure(document);
  const XMLElement root = document.RootElement();
  RunStep([&] { use(file, root); }, [&] { return root.Position(); });
  LoadListener::Current().EndFile(root);
  NoteDamage(file, isDamaged);
}

/// Reports the number of files left unread after an early end of a list.
void ReportLeftOut(const std::vector<DiskFile>& files, std::size_t read);

/// Calls `use(file, root)` for each configuration file of the list, with its root element. The first failure
/// stops the walk, unless the listener passes over it: a failure without a place gets the file, and the
/// number of files left out is reported. The files are only read.
template <class Use>
void ReadConfigurationFiles(const std::vector<DiskFile>& files, Use use) {
  ReadAhead documents(files);
  std::size_t read = 0;
  try {
    for (const DiskFile& file : files) {
      ReportProgress({file, read++, files.size()});
      NoteDamage(file, true);  // until it has been used completely
      LoadListener::Current().BeginFile(file.FullPath());
      RunStep([&] { UseDocument(file, documents.Next(), use); },
              [&] {
                return FilePosition{file.FullPath(), 0, 0};
              });
    }
  } catch (const Error&) {
    ReportLeftOut(files, read);
    throw;
  }
}

/// As above for every "*.xml" file of the folder, in the order of the listing; for none where the folder
/// does not exist.
template <class Use>
void ReadConfigurationFolder(std::string_view folder, Use use) {
  DiskFile listing;
  listing.SetFolder(folder);
  auto files = listing.Files("*.xml");
  std::erase_if(files, [](const DiskFile& file) { return !file.Exists(); });
  ReadConfigurationFiles(files, [&](const DiskFile&, const XMLElement& root) { use(root); });
}

/// Writes one configuration file: `fill(root)` names and fills the root element. The old file stays whole
/// when anything fails. A file that could be read only in part is copied before.
template <class Fill>
void WriteConfigurationFile(DiskFile& file, Fill fill) {
  XMLDocument document;
  XMLElement root = document.RootElement();
  fill(root);
  const std::string text = document.XML();
  KeepDamagedFile(file);
  file.Open(DiskFile::kCreateOrTruncate, DiskFile::kWrite, 3);
  file.Write(text);
  file.Close();
}

}  // namespace lwconfig
