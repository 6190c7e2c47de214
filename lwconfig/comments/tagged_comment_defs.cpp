#include <utility>
#include <vector>

#include <lwconfig/comments/tagged_comment_defs.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>

namespace lwconfig {
namespace {

std::string StandardFile() {
  return ConfigPath() + "\\taggedcomments_standard.xml";
}
std::string CustomFile() {
  return ConfigPath() + "\\taggedcomments_custom.xml";
}
std::string OlderFile() {
  return ConfigPath() + "\\taggedcomments.xml";
}

std::string BetweenCommas(std::string_view text) {
  return "," + std::string(text) + ",";
}

}  // namespace

void TaggedCommentDefs::Load() {
  mCol.Clear();
  if (DiskFile(StandardFile()).Exists()) {
    // Note the damage before loading: a failure among the custom definitions would leave this file unread.
    NoteDamage(DiskFile(StandardFile()), true);
    LoadFrom(CustomFile());
    LoadFrom(StandardFile());
  } else {
    LoadFrom(OlderFile());
  }
}

void TaggedCommentDefs::Save() const {
  SaveEx(true, true);
  try {
    DiskFile older(OlderFile());
    KeepDamagedFile(older);
    older.Delete();
  } catch (const Error&) {
    // Ignore the failure: the older file is not read while the new ones exist.
  }
}

void TaggedCommentDefs::SaveEx(bool includeStandard, bool includeCustom) const {
  RequireConfigPath();
  if (includeStandard) SaveToEx(StandardFile(), true, false);
  if (includeCustom) SaveToEx(CustomFile(), false, true);
}

// taggedcomments_standard.xml, taggedcomments_custom.xml or an older file. Child elements have any name.
//
//   <TaggedCommentDefs DefaultDesignerProgID=>
//     <TaggedComment Identifier="##REMARKS" Elementtype="3" Hidden="False" Description= Format=
//                    General="False" WrapType="3" Standard="True" .../>
//   </TaggedCommentDefs>
void TaggedCommentDefs::LoadFrom(std::string_view fileName) {
  FileName = fileName;
  std::vector<std::pair<Pointer, std::string>> loaded;
  const auto load = [&](const DiskFile&, const XMLElement& root) {
    AttributeReader(root).Try("DefaultDesignerProgID", DefaultDesignerProgID);
    ForEachChild(root, [&](const XMLElement& child) {
      auto definition = std::make_shared<TaggedCommentDef>();
      definition->Load(child);
      loaded.emplace_back(definition, definition->TagIdentifier);
    });
  };
  const DiskFile file(FileName);
  try {
    if (file.Exists()) ReadConfigurationFiles({file}, load);
  } catch (...) {
    mCol.AddReplacing(std::move(loaded));
    throw;
  }
  mCol.AddReplacing(std::move(loaded));
  IsPopulated = true;
}

void TaggedCommentDefs::SaveTo(std::string_view fileName) const {
  SaveToEx(fileName, true, true);
}

void TaggedCommentDefs::SaveToEx(std::string_view fileName, bool includeStandard, bool includeCustom) const {
  DiskFile file(fileName);
  WriteConfigurationFile(file, [&](XMLElement& root) {
    root.SetName("TaggedCommentDefs");
    root.PutAttribute("DefaultDesignerProgID", DefaultDesignerProgID);
    for (const auto& definition : *this) {
      if (!(definition->Standard ? includeStandard : includeCustom)) continue;
      auto child = root.AddElement("TaggedComment", "");
      definition->Save(child);
    }
  });
}

std::shared_ptr<TaggedCommentDefs> TaggedCommentDefs::Clone() const {
  auto copies = std::make_shared<TaggedCommentDefs>();
  copies->FileName = FileName;
  copies->IsPopulated = IsPopulated;
  copies->DefaultDesignerProgID = DefaultDesignerProgID;
  for (const auto& definition : *this) copies->Add(definition->Clone(), definition->TagIdentifier);
  return copies;
}

std::shared_ptr<TaggedCommentDef> TaggedCommentDefs::ItemFromXMLTagName(std::string_view tagName) const {
  const std::string wanted = BetweenCommas(tagName);
  for (const auto& definition : *this) {
    if (ContainsIgnoringCase(BetweenCommas(definition->XMLCommentTypes), wanted)) return definition;
  }
  return nullptr;
}

}  // namespace lwconfig
