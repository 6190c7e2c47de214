#include <lwconfig/comments/comment_file_locations.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>

namespace lwconfig {
namespace {

constexpr std::string_view kNetPath = "%NetPath%";

DiskFile LocationsFile() {
  return DiskFile(ConfigPath(), "CommentFileLocations", "xml");
}

}  // namespace

std::string CommentFileLocation::CommentFilePath() const {
  std::string resolved;
  std::string_view rest = mCommentFilePath;
  for (auto percent = rest.find('%'); percent != std::string_view::npos; percent = rest.find('%')) {
    const bool isPlaceholder = EqualIgnoringCase(rest.substr(percent, kNetPath.size()), kNetPath);
    const auto length = isPlaceholder ? kNetPath.size() : 1;
    resolved += rest.substr(0, percent);
    resolved += isPlaceholder ? DotNetPath() : "%";
    rest.remove_prefix(percent + length);
  }
  return resolved += rest;
}

void CommentFileLocation::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("AssemblyFileName", AssemblyFileName);
  in.Require("CommentFilePath", mCommentFilePath);
}

void CommentFileLocation::Save(XMLElement& e) const {
  e.PutAttribute("AssemblyFileName", AssemblyFileName);
  e.PutAttribute("CommentFilePath", mCommentFilePath);
}

std::shared_ptr<CommentFileLocation> CommentFileLocation::Clone() const {
  return std::make_shared<CommentFileLocation>(*this);
}

// CommentFileLocations.xml. Child elements have any name.
//
//   <CommentFileLocations Version="4.0">
//     <CommentFile AssemblyFileName="System.dll" CommentFilePath="%NetPath%system.xml"/>
//   </CommentFileLocations>
void CommentFileLocations::Load() {
  mCol.Clear();
  const DiskFile file = LocationsFile();
  if (file.Exists()) {
    ReadConfigurationFiles({file}, [&](const DiskFile&, const XMLElement& root) {
      AttributeReader(root).Skip("Version");
      ForEachChild(root, [&](const XMLElement& child) {
        auto location = std::make_shared<CommentFileLocation>();
        location->Load(child);
        Add(std::move(location));
      });
    });
  }
  Dirty = false;
}

void CommentFileLocations::Save() {
  RequireConfigPath();
  DiskFile file = LocationsFile();
  WriteConfigurationFile(file, [&](XMLElement& root) {
    root.SetName("CommentFileLocations");
    root.PutAttribute("Version", "4.0");
    for (const auto& location : *this) {
      auto child = root.AddElement("CommentFile", "");
      location->Save(child);
    }
  });
  Dirty = false;
}

std::shared_ptr<CommentFileLocations> CommentFileLocations::Clone() const {
  auto copies = std::make_shared<CommentFileLocations>();
  for (const auto& location : *this) copies->Add(location->Clone());
  return copies;
}

}  // namespace lwconfig
